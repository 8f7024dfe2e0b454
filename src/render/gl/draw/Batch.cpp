#include "render/gl/draw/Batch.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

constexpr std::array<GLenum, 3> modes{GL_LINES, GL_QUADS, GL_TRIANGLES};

} // namespace
} // namespace Detail

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
  if (from.x == to.x)
  {
    const PixelRun run = _columns.add(a.x, a.y, b.y);
    if (!run.empty())
    {
      const double column = pixelOf(a.x);
      _addPixels({column, run.first + 0.0}, {column + 1.0, run.last + 1.0});
    }
  }
  else if (from.y == to.y)
  {
    const PixelRun run = _rows.add(a.y, a.x, b.x);
    if (!run.empty())
    {
      const double row = pixelOf(a.y);
      _addPixels({run.first + 0.0, row}, {run.last + 1.0, row + 1.0});
    }
  }
  else
  {
    _makeRoom(Primitive::Lines, 2);
    _add(a.x, a.y, _white);
    _add(b.x, b.y, _white);
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
  glDrawArrays(Detail::modes[static_cast<std::size_t>(_primitive)], 0,
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

void Batch::_addPixels(const Point& low, const Point& high)
{
  _makeRoom(Primitive::Quads, 4);
  _add(low.x, low.y, _white);
  _add(high.x, low.y, _white);
  _add(high.x, high.y, _white);
  _add(low.x, high.y, _white);
}

} // namespace orvex::render::gl
