#include "render/gl/device/FrameBufferScope.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

FrameBufferScope::FrameBufferScope()
{
  GLint bound = 0;
  glGetIntegerv(GL_FRAMEBUFFER_BINDING_EXT, &bound);
  _before = static_cast<unsigned int>(bound);
}

FrameBufferScope::~FrameBufferScope()
{
  glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, _before);
}

} // namespace orvex::render::gl
