#include "render/gl/device/TextureUpload.h"

#include "render/gl/device/PixelStoreScope.h"

#include <vector>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

void makeImage(GLenum format, unsigned int columns, unsigned int rows, const unsigned char* pixels)
{
  glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), static_cast<GLsizei>(columns),
               static_cast<GLsizei>(rows), 0, format, GL_UNSIGNED_BYTE, pixels);
}

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
  const unsigned int columns = textureSide(width);
  const unsigned int rows = textureSide(height);
  if (columns == width && rows == height)
  {
    makeImage(format, columns, rows, pixels);
    return;
  }
  constexpr std::size_t mostChannels = 4;
  makeImage(format, columns, rows,
            std::vector<unsigned char>(mostChannels * columns * rows).data());
  glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, static_cast<GLsizei>(width), static_cast<GLsizei>(height),
                  format, GL_UNSIGNED_BYTE, pixels);
}

} // namespace
} // namespace Detail

unsigned int textureSide(unsigned int pixels)
{
  // Not by the version: drivers for old cards say 2.0 and leave this out.
  if (GLEW_ARB_texture_non_power_of_two)
  {
    return pixels;
  }
  unsigned int side = 1;
  while (side < pixels)
  {
    side *= 2;
  }
  return side;
}

float textureEnd(unsigned int pixels)
{
  const unsigned int side = textureSide(pixels);
  return side == pixels ? 1.0f : static_cast<float>(pixels) / static_cast<float>(side);
}

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
