#pragma once

#include "foundation/counted/Referenced.h"
#include "render/camera/Viewport.h"
#include "render/gl/draw/PixelGrid.h"
#include "render/gl/draw/PixelRuns.h"

#include <array>
#include <cstddef>

namespace orvex::render::gl
{

/// Converts the lines and proxies of a pass from the world to pixels of the window and draws many
/// of them with one call.
///
/// Its buffer has one size and is used again by each pass. Needs a current context with the vertex
/// and colour arrays enabled, and matrices under which one unit is one pixel of the window.
class Batch : public Kelmar::Base::Referenced
{
public:
  using Point = Point2D<double>;

  /// How many vertices are drawn with one call at most; lines and triangles divide it.
  static constexpr std::size_t capacity = 6144;

  /// Starts a pass; drops what was not drawn.
  /// \param localToScreen  scales and shifts, but turns nothing
  void begin(const Viewport& viewport, const Kelmar::Math::Matrix44d& localToScreen);

  /// A white line between two points in world units. A line along a row or a column lights all
  /// pixels between its ends and those of the ends, on every renderer.
  void line(const Point& from, const Point& to);
  /// A green triangle.
  void triangle(const Point& a, const Point& b, const Point& c);

  /// Draws what was added.
  void flush();

private:
  enum class Primitive
  {
    Lines,
    Triangles
  };
  using Colour = std::array<unsigned char, 4>;
  struct Vertex
  {
    float x, y;
    Colour colour;
  };

  void _makeRoom(Primitive primitive, std::size_t count);
  void _add(double x, double y, const Colour& colour);
  void _addWhite(double x0, double y0, double x1, double y1);

  Viewport _viewport;
  PixelGrid _grid;
  PixelRuns _rows;
  PixelRuns _columns;
  Primitive _primitive = Primitive::Lines;
  std::size_t _count = 0;
  std::array<Vertex, capacity> _vertices;
};

} // namespace orvex::render::gl
