#include "render/gl/draw/Triangle.h"

#include "render/gl/device/OpenGL.h"

using orvex::render::gl::toVertex;

namespace Detail
{

constexpr float green[12] = {0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1};

} // namespace Detail

Triangle::Triangle(const Point& a, const Point& b, const Point& c)
    : _vertices{toVertex(a), toVertex(b), toVertex(c)}
{
}

void Triangle::render(orvex::render::gl::State&) const
{
  glVertexPointer(2, GL_FLOAT, 0, _vertices.data());
  glColorPointer(4, GL_FLOAT, 0, Detail::green);
  glDrawArrays(GL_TRIANGLES, 0, 3);
}
