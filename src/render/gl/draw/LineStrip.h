#pragma once

#include "render/Edge2D.h"
#include "render/gl/draw/Drawable.h"
#include "render/gl/draw/PackedLines.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <vector>

/// The white lines from a node to its children: one polyline for each edge, in world units.
class LineStrip : public orvex::render::gl::Drawable
{
public:
  /// A null edge adds no line.
  explicit LineStrip(const std::vector<boost::intrusive_ptr<orvex::render::Edge2D>>& edges);

  /// Adds the lines to the batch of the pass.
  void render(orvex::render::gl::State& state) const override;

  const orvex::render::gl::PackedLines& lines() const { return _lines; }

private:
  orvex::render::gl::PackedLines _lines;
};
