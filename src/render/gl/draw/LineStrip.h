#pragma once

#include "render/gl/draw/Drawable.h"
#include "render/layout/EdgeList.h"

#include <utility>

/// The white lines from a node to its children: one polyline for each edge, in world units.
class LineStrip : public orvex::render::gl::Drawable
{
public:
  explicit LineStrip(orvex::render::EdgeList edges) : _edges(std::move(edges)) {}

  /// Adds the lines to the batch of the pass.
  void render(orvex::render::gl::State& state) const override;

  const orvex::render::EdgeList& edges() const { return _edges; }

private:
  orvex::render::EdgeList _edges;
};
