#pragma once

#include "render/Edge2D.h"
#include "render/gl/draw/Drawable.h"
#include "render/gl/draw/VertexTypes.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <vector>

/// The white lines from a node to its children: one polyline for each edge, in world units.
class LineStrip : public orvex::render::gl::Drawable
{
public:
  /// A null edge adds no line.
  explicit LineStrip(const std::vector<boost::intrusive_ptr<orvex::render::Edge2D>>& edges);

  /// One draw call for each line. Needs the vertex and colour arrays enabled.
  void render(orvex::render::gl::State& state) const override;

  /// How many vertices each line has.
  const std::vector<int>& lengths() const { return _lengths; }
  /// The vertices of all lines, one line after the other.
  const std::vector<orvex::render::gl::Vector2f>& vertices() const { return _vertices; }

private:
  // Every node of a tree has one of these, so they are kept small: a vector for each line would
  // take several times the vertices' memory, and one white does for all.
  std::vector<orvex::render::gl::Vector2f> _vertices;
  std::vector<int> _lengths;
};
