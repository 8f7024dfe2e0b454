#include "render/gl/device/FrameBufferObject.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

FrameBufferObject::FrameBufferObject()
{
  glGenFramebuffersEXT(1, &_id);
}

FrameBufferObject::~FrameBufferObject()
{
  glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
  glDeleteFramebuffersEXT(1, &_id);
}

void FrameBufferObject::bind()
{
  glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, _id);
}

void FrameBufferObject::unbind()
{
  glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
}

bool FrameBufferObject::isSupported()
{
  return GLEW_EXT_framebuffer_object;
}

} // namespace orvex::render::gl
