#pragma once

#include "render/gl/draw/Drawable.h"
#include "render/gl/draw/VertexTypes.h"

#include <array>

/// The proxy of a clade: a green triangle from the clade's node to the ends of its leaf column, in
/// world units. Drawn with the polygon mode GL_LINE it is an outline.
class Triangle : public orvex::render::gl::Drawable
{
public:
  using Point = orvex::render::Point2D<double>;

  Triangle(const Point& a, const Point& b, const Point& c);

  /// Needs the vertex and colour arrays enabled.
  void render(orvex::render::gl::State& state) const override;

  const std::array<orvex::render::gl::Vector2f, 3>& vertices() const { return _vertices; }

private:
  std::array<orvex::render::gl::Vector2f, 3> _vertices;
};
