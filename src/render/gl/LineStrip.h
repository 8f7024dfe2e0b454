#pragma once

#include "render/Edge2D.h"
#include "render/gl/Drawable.h"
#include "render/gl/VertexTypes.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <vector>

/// The white lines from a node to its children: one polyline for each edge, in world units.
class LineStrip : public orvex::render::gl::Drawable
{
public:
  template <class T>
  using Polylines = std::vector<std::vector<T>>;

  /// A null edge adds no line.
  explicit LineStrip(const std::vector<boost::intrusive_ptr<orvex::render::Edge2D>>& edges);

  /// One draw call for each edge. Needs the vertex and colour arrays enabled.
  void render(orvex::render::gl::State& state) const override;

  const Polylines<orvex::render::gl::Vector2f>& vertices() const { return _vertices; }

private:
  Polylines<orvex::render::gl::Vector2f> _vertices;
  // Entry for entry and vertex for vertex beside the vertices.
  Polylines<orvex::render::gl::Vector4f> _colours;
};
