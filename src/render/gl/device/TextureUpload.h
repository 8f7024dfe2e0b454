#pragma once

#include "render/gl/device/ObjectName.h"
#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

/// Switches texturing on and binds a texture. One that has no object yet is made of gapless rows of
/// bytes: clamped, linear, without mipmaps.
/// \param format  both the texture's own format and that of \p pixels
void applyTexture(TextureName& texture, GLenum format, unsigned int width, unsigned int height,
                  const unsigned char* pixels);

/// The bound texture's wrapping and filter, as all of our textures have them.
void setTextureParameters();

} // namespace orvex::render::gl
