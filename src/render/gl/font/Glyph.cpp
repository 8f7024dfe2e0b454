#include "render/gl/font/Glyph.h"

#include "render/gl/device/TextureUpload.h"

namespace orvex::render::gl
{

Glyph::Glyph(unsigned int width, unsigned int height)
    : _buffer(new unsigned char[std::size_t(width) * height]()), _width(width), _height(height)
{
}

void Glyph::setHorizontalBearing(double x, double y)
{
  _horizontalBearingX = x;
  _horizontalBearingY = y;
}

void Glyph::apply()
{
  applyTexture(_texture, GL_ALPHA, _width, _height, _buffer.get());
}

} // namespace orvex::render::gl
