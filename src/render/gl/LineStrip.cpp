#include "render/gl/LineStrip.h"

#include "render/gl/OpenGL.h"

#include <algorithm>

using orvex::render::gl::State;
using orvex::render::gl::toVertex;
using orvex::render::gl::Vector2f;
using orvex::render::gl::Vector4f;

LineStrip::LineStrip(const std::vector<boost::intrusive_ptr<orvex::render::Edge2D>>& edges)
{
  _vertices.reserve(edges.size());
  _colours.reserve(edges.size());
  std::vector<orvex::render::Point2D<double>> points;
  for (const auto& edge : edges)
  {
    if (!edge)
    {
      continue;
    }
    edge->evaluate(points);
    std::vector<Vector2f>& line = _vertices.emplace_back(points.size());
    std::transform(points.begin(), points.end(), line.begin(), toVertex);
    _colours.emplace_back(points.size(), Vector4f(1.0f, 1.0f, 1.0f, 1.0f));
  }
}

void LineStrip::render(State&) const
{
  for (std::size_t i = 0; i < _vertices.size(); ++i)
  {
    glVertexPointer(2, GL_FLOAT, 0, _vertices[i].data());
    glColorPointer(4, GL_FLOAT, 0, _colours[i].data());
    glDrawArrays(GL_LINE_STRIP, 0, static_cast<GLsizei>(_vertices[i].size()));
  }
}
