#include "render/gl/Triangle.h"

#include "render/gl/OpenGL.h"

using orvex::render::gl::toVertex;

Triangle::Triangle(const Point& a, const Point& b, const Point& c)
    : _vertices{toVertex(a), toVertex(b), toVertex(c)}
{
  _colours.fill({0.0f, 1.0f, 0.0f, 1.0f});
}

void Triangle::render(orvex::render::gl::State&) const
{
  glVertexPointer(2, GL_FLOAT, 0, _vertices.data());
  glColorPointer(4, GL_FLOAT, 0, _colours.data());
  glDrawArrays(GL_TRIANGLES, 0, 3);
}
