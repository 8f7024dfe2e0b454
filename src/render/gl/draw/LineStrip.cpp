#include "render/gl/draw/LineStrip.h"

#include "render/gl/device/OpenGL.h"

using orvex::render::gl::State;
using orvex::render::gl::toVertex;
using orvex::render::gl::Vector2f;
using orvex::render::gl::Vector4f;

namespace Detail
{

/// At least \p count times white.
const Vector4f* white(std::size_t count)
{
  static std::vector<Vector4f> colours;
  if (colours.size() < count)
  {
    colours.resize(count, Vector4f(1.0f, 1.0f, 1.0f, 1.0f));
  }
  return colours.data();
}

} // namespace Detail

LineStrip::LineStrip(const std::vector<boost::intrusive_ptr<orvex::render::Edge2D>>& edges)
{
  _lengths.reserve(edges.size());
  std::vector<orvex::render::Point2D<double>> points;
  for (const auto& edge : edges)
  {
    if (!edge)
    {
      continue;
    }
    edge->evaluate(points);
    if (_vertices.empty())
    {
      _vertices.reserve(edges.size() * points.size());
    }
    for (const auto& point : points)
    {
      _vertices.push_back(toVertex(point));
    }
    _lengths.push_back(static_cast<int>(points.size()));
  }
}

void LineStrip::render(State&) const
{
  const Vector2f* line = _vertices.data();
  for (const int length : _lengths)
  {
    glVertexPointer(2, GL_FLOAT, 0, line);
    glColorPointer(4, GL_FLOAT, 0, Detail::white(static_cast<std::size_t>(length)));
    glDrawArrays(GL_LINE_STRIP, 0, length);
    line += length;
  }
}
