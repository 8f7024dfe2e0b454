#include "render/gl/view/Passes.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

void applyViewport(const Viewport& viewport)
{
  glViewport(static_cast<GLint>(viewport.x), static_cast<GLint>(viewport.y),
             static_cast<GLsizei>(viewport.width), static_cast<GLsizei>(viewport.height));
}

void applyMatrices(const Kelmar::Math::Matrix44d& projection,
                   const Kelmar::Math::Matrix44d& modelView)
{
  glMatrixMode(GL_PROJECTION);
  glLoadMatrixd(projection.data());
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glLoadMatrixd(modelView.data());
}

boost::intrusive_ptr<State> makePassState(const Viewport& viewport,
                                          const Kelmar::Math::Matrix44d& projection,
                                          const Kelmar::Math::Matrix44d& modelView)
{
  boost::intrusive_ptr<State> state(new State);
  state->viewport(viewport);
  state->modelViewMatrix(modelView);
  state->projectionMatrix(projection);
  return state;
}

} // namespace orvex::render::gl
