#include "render/gl/device/Driver.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

bool answers()
{
  const GLubyte* const version = glGetString(GL_VERSION);
  return version && *version != 0;
}

bool canMultisample()
{
  GLint most = 0;
  glGetIntegerv(GL_MAX_SAMPLES, &most);
  // Old drivers don't know this number. Their windows with samples are as good as they say.
  const bool isUnknown = glGetError() != GL_NO_ERROR || most == 0;
  return isUnknown || most > 1;
}

bool hasSamples()
{
  GLint buffers = 0;
  glGetIntegerv(GL_SAMPLE_BUFFERS, &buffers);
  glGetError(); // a driver without samples may not know them
  return buffers > 0;
}

} // namespace orvex::render::gl
