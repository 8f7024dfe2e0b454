#include "render/gl/device/ReadFrame.h"

#include "render/gl/device/Driver.h"
#include "render/gl/device/FrameBufferObject.h"
#include "render/gl/device/OpenGL.h"
#include "render/gl/device/PixelStoreScope.h"

#include <stdexcept>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

GLint valueOf(GLenum name)
{
  GLint value = 0;
  glGetIntegerv(name, &value);
  return value;
}

bool readPixels(GLsizei width, GLsizei height, unsigned char* rgba)
{
  const PixelStoreScope store;
  glPixelStorei(GL_PACK_ROW_LENGTH, 0);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
  return glGetError() == GL_NO_ERROR;
}

// Some drivers read only one sample of each pixel. A copy into a buffer without samples forms the
// mean. It has the window's own format, since OpenGL 3.0 allows no other.
bool readMeans(unsigned int width, unsigned int height, unsigned char* rgba)
{
  TextureName texture;
  FrameBufferObject copy;
  copy.attachTexture(texture, width, height, valueOf(GL_ALPHA_BITS) > 0 ? GL_RGBA8 : GL_RGB8);
  bool isRead = false;
  if (copy.isComplete())
  {
    const auto right = static_cast<GLsizei>(width);
    const auto top = static_cast<GLsizei>(height);
    glBindFramebufferEXT(GL_READ_FRAMEBUFFER_EXT, 0);
    glBlitFramebufferEXT(0, 0, right, top, 0, 0, right, top, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    const bool isCopied = glGetError() == GL_NO_ERROR;
    copy.bind();
    isRead = isCopied && readPixels(right, top, rgba);
  }
  copy.unbind();
  texture.remove();
  return isRead;
}

} // namespace
} // namespace Detail

void readFrame(unsigned int width, unsigned int height, unsigned char* rgba)
{
  while (glGetError() != GL_NO_ERROR) // of the time before
  {
  }
  const bool canCopy = FrameBufferObject::isSupported() && GLEW_EXT_framebuffer_blit;
  if (hasSamples() && canCopy && Detail::readMeans(width, height, rgba))
  {
    return;
  }
  while (glGetError() != GL_NO_ERROR)
  {
  }
  if (!Detail::readPixels(static_cast<GLsizei>(width), static_cast<GLsizei>(height), rgba))
  {
    throw std::runtime_error("The picture can't be read from this display.");
  }
}

} // namespace orvex::render::gl
