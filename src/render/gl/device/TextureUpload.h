#pragma once

#include "render/gl/device/ObjectName.h"
#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

/// The side of a texture that holds so many pixels: the same, or the next power of two where the
/// driver takes no other. Needs glewInit.
unsigned int textureSide(unsigned int pixels);
/// The texture coordinate at which so many pixels end in a texture of that side.
float textureEnd(unsigned int pixels);

/// Switches texturing on and binds a texture. One that has no object yet is made of gapless rows of
/// bytes: clamped, linear, without mipmaps. Pixels beyond \p width and \p height are zero.
/// \param format  both the texture's own format and that of \p pixels
void applyTexture(TextureName& texture, GLenum format, unsigned int width, unsigned int height,
                  const unsigned char* pixels);

/// The bound texture's wrapping and filter, as all of our textures have them.
void setTextureParameters();

} // namespace orvex::render::gl
