#include "render/gl/draw/Batch.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

void Batch::begin(const Viewport& viewport, const Kelmar::Math::Matrix44d& localToScreen)
{
  _viewport = viewport;
  _grid = PixelGrid(viewport, localToScreen);
  _rows.reset(viewport.height, viewport.width);
  _columns.reset(viewport.width, viewport.height);
  _count = 0;
}

void Batch::line(const Point& from, const Point& to)
{
  const Point a = _grid.toPixels(from);
  const Point b = _grid.toPixels(to);
  // From the middle of the first pixel to that of the pixel after the last, which is not lit.
  if (from.x == to.x)
  {
    const PixelRun run = _columns.add(a.x, a.y, b.y);
    if (!run.empty())
    {
      const double x = pixelOf(a.x) + 0.5;
      _addWhite(x, run.first + 0.5, x, run.last + 1.5);
    }
  }
  else if (from.y == to.y)
  {
    const PixelRun run = _rows.add(a.y, a.x, b.x);
    if (!run.empty())
    {
      const double y = pixelOf(a.y) + 0.5;
      _addWhite(run.first + 0.5, y, run.last + 1.5, y);
    }
  }
  else
  {
    _addWhite(a.x, a.y, b.x, b.y);
  }
}

void Batch::triangle(const Point& a, const Point& b, const Point& c)
{
  constexpr Colour green{0, 255, 0, 255};
  _makeRoom(Primitive::Triangles, 3);
  for (const Point& corner : {a, b, c})
  {
    const Point pixels = _grid.toPixels(corner);
    _add(pixels.x, pixels.y, green);
  }
}

void Batch::flush()
{
  if (_count == 0)
  {
    return;
  }
  glVertexPointer(2, GL_FLOAT, sizeof(Vertex), &_vertices[0].x);
  glColorPointer(4, GL_UNSIGNED_BYTE, sizeof(Vertex), _vertices[0].colour.data());
  glDrawArrays(_primitive == Primitive::Lines ? GL_LINES : GL_TRIANGLES, 0,
               static_cast<GLsizei>(_count));
  _count = 0;
}

void Batch::_makeRoom(Primitive primitive, std::size_t count)
{
  if (primitive != _primitive || _count + count > capacity)
  {
    flush();
    _primitive = primitive;
  }
}

void Batch::_add(double x, double y, const Colour& colour)
{
  _vertices[_count++] = {static_cast<float>(x + _viewport.x), static_cast<float>(y + _viewport.y),
                         colour};
}

void Batch::_addWhite(double x0, double y0, double x1, double y1)
{
  constexpr Colour white{255, 255, 255, 255};
  _makeRoom(Primitive::Lines, 2);
  _add(x0, y0, white);
  _add(x1, y1, white);
}

} // namespace orvex::render::gl
