#include "render/gl/device/TextureUpload.h"

#include "render/gl/device/PixelStoreScope.h"

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

void uploadTexture(TextureName& texture, GLenum format, unsigned int width, unsigned int height,
                   const unsigned char* pixels)
{
  texture.make();
  glBindTexture(GL_TEXTURE_2D, texture.get());
  const PixelStoreScope store;
  glPixelStorei(GL_UNPACK_LSB_FIRST, 0);
  glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  setTextureParameters();
  glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), static_cast<GLsizei>(width),
               static_cast<GLsizei>(height), 0, format, GL_UNSIGNED_BYTE, pixels);
}

} // namespace
} // namespace Detail

void setTextureParameters()
{
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}

void applyTexture(TextureName& texture, GLenum format, unsigned int width, unsigned int height,
                  const unsigned char* pixels)
{
  glEnable(GL_TEXTURE_2D);
  if (texture.exists())
  {
    glBindTexture(GL_TEXTURE_2D, texture.get());
    return;
  }
  Detail::uploadTexture(texture, format, width, height, pixels);
}

} // namespace orvex::render::gl
