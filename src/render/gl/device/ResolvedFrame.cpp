#include "render/gl/device/ResolvedFrame.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

ResolvedFrame::ResolvedFrame(unsigned int width, unsigned int height)
{
  _frameBuffer.attachTexture(_texture, width, height);
  glBindFramebufferEXT(GL_READ_FRAMEBUFFER_EXT, 0);
  const auto right = static_cast<GLint>(width);
  const auto top = static_cast<GLint>(height);
  glBlitFramebufferEXT(0, 0, right, top, 0, 0, right, top, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  _frameBuffer.bind();
}

ResolvedFrame::~ResolvedFrame()
{
  _frameBuffer.unbind();
  _texture.remove();
}

bool ResolvedFrame::isSupported()
{
  return FrameBufferObject::isSupported() && GLEW_EXT_framebuffer_blit;
}

} // namespace orvex::render::gl
