#include "render/gl/device/FrameBufferObject.h"

#include "render/gl/device/TextureUpload.h"

namespace orvex::render::gl
{

FrameBufferObject::FrameBufferObject()
{
  _id.make();
}

FrameBufferObject::~FrameBufferObject()
{
  glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
  _id.remove();
}

void FrameBufferObject::bind()
{
  glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, _id.get());
}

void FrameBufferObject::unbind()
{
  glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
}

void FrameBufferObject::attachTexture(TextureName& texture, unsigned int width, unsigned int height,
                                      unsigned int format)
{
  bind();
  texture.make();
  glBindTexture(GL_TEXTURE_2D, texture.get());
  setTextureParameters();
  glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format),
               static_cast<GLsizei>(textureSide(width)), static_cast<GLsizei>(textureSide(height)),
               0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
  glFramebufferTexture2DEXT(GL_FRAMEBUFFER_EXT, GL_COLOR_ATTACHMENT0_EXT, GL_TEXTURE_2D,
                            texture.get(), 0);
}

bool FrameBufferObject::isComplete() const
{
  return glCheckFramebufferStatusEXT(GL_FRAMEBUFFER_EXT) == GL_FRAMEBUFFER_COMPLETE_EXT;
}

bool FrameBufferObject::isSupported()
{
  return GLEW_EXT_framebuffer_object;
}

} // namespace orvex::render::gl
