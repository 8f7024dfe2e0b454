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
/// A run of pixels is one rectangle with its corners at corners of pixels: the middle of each pixel
/// is half a pixel away from every edge, so all renderers fill the same ones, with one sample or
/// several. A line of OpenGL would begin and end in the middle of a pixel, where renderers differ.
///
/// Its buffer has one size and is used again by each pass. Needs a current context with the vertex
/// and colour arrays enabled, and matrices under which one unit is one pixel of the window. The
/// polygon mode is the caller's: GL_FILL for lines; proxies are drawn in either.
class Batch : public Kelmar::Base::Referenced
{
public:
  using Point = Point2D<double>;

  /// How many vertices are drawn with one call at most; all primitives divide it.
  static constexpr std::size_t capacity = 6144;

  /// Starts a pass; drops what was not drawn.
  /// \param localToScreen  scales and shifts, but turns nothing
  void begin(const Viewport& viewport, const Kelmar::Math::Matrix44d& localToScreen);

  /// A white line between two points in world units. A line along a row or a column lights all
  /// pixels between its ends and those of the ends, on every renderer; a slanted one is OpenGL's.
  void line(const Point& from, const Point& to);
  /// A green triangle.
  void triangle(const Point& a, const Point& b, const Point& c);

  /// Draws what was added.
  void flush();

private:
  enum class Primitive
  {
    Lines,
    Quads,
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
  // Both are corners of pixels.
  void _addPixels(const Point& low, const Point& high);

  static constexpr Colour _white{255, 255, 255, 255};

  Viewport _viewport;
  PixelGrid _grid;
  PixelRuns _rows;
  PixelRuns _columns;
  Primitive _primitive = Primitive::Lines;
  std::size_t _count = 0;
  std::array<Vertex, capacity> _vertices;
};

} // namespace orvex::render::gl
