#include "render/gl/device/FrameBufferGuard.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

FrameBufferGuard::FrameBufferGuard()
{
  GLint bound = 0;
  glGetIntegerv(GL_FRAMEBUFFER_BINDING_EXT, &bound);
  _before = static_cast<unsigned int>(bound);
}

FrameBufferGuard::~FrameBufferGuard()
{
  glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, _before);
}

} // namespace orvex::render::gl
