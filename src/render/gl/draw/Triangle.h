#pragma once

#include "render/gl/draw/Drawable.h"
#include "render/layout/Box2D.h"
#include "render/layout/Point2D.h"

#include <array>

/// The proxy of a clade: a green triangle from the clade's node to the right corners of its box, in
/// world units. Drawn with the polygon mode GL_LINE it is an outline.
class Triangle : public orvex::render::gl::Drawable
{
public:
  using Point = orvex::render::Point2D<double>;

  Triangle(const Point& node, const orvex::render::Box2D& clade);

  /// Adds the triangle to the batch of the pass.
  void render(orvex::render::gl::State& state) const override;

  /// The node, the lower right corner and the upper right one.
  std::array<Point, 3> vertices() const;

private:
  Point _node;
  double _right;
  double _bottom;
  double _top;
};
