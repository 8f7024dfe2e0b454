#include "render/gl/draw/ApplyPass.h"

#include "render/camera/DrawingPass.h"
#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

void applyPass(const DrawingPass& pass)
{
  const Viewport& viewport = pass.viewport;
  glViewport(static_cast<GLint>(viewport.x), static_cast<GLint>(viewport.y),
             static_cast<GLsizei>(viewport.width), static_cast<GLsizei>(viewport.height));
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixd(pass.projection.data());
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glLoadMatrixd(pass.modelView.data());
}

} // namespace orvex::render::gl
