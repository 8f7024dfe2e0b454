#pragma once

#include "render/gl/device/ObjectName.h"
#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

/// Makes a texture of gapless rows of bytes and leaves it bound: clamped, linear, without mipmaps.
/// \param texture  has no object yet
/// \param format  both the texture's own format and that of \p pixels
void uploadTexture(TextureName& texture, GLenum format, unsigned int width, unsigned int height,
                   const unsigned char* pixels);

/// The bound texture's wrapping and filter, as all of our textures have them.
void setTextureParameters();

} // namespace orvex::render::gl
