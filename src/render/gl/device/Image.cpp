#include "render/gl/device/Image.h"

#include "render/gl/device/OpenGL.h"

#include <stdexcept>

namespace orvex::render::gl
{

namespace Detail
{
namespace
{

unsigned int channelsOf(unsigned int format)
{
  switch (format)
  {
  case GL_ALPHA:
  case GL_LUMINANCE:
    return 1;
  case GL_LUMINANCE_ALPHA:
    return 2;
  case GL_RGB:
    return 3;
  case GL_RGBA:
    return 4;
  default:
    throw std::runtime_error("Pixel format not handled.");
  }
}

} // namespace
} // namespace Detail

void Image::init(unsigned int width, unsigned int height, unsigned int format)
{
  // First what can throw, so that a failure changes nothing.
  const std::size_t size = std::size_t(width) * height * Detail::channelsOf(format);
  _buffer.reset(new unsigned char[size]);
  _width = width;
  _height = height;
  _format = format;
}

unsigned int Image::numChannels() const
{
  return Detail::channelsOf(_format);
}

std::size_t Image::_index(unsigned int row, unsigned int offset) const
{
  return std::size_t(row) * _width * numChannels() + offset;
}

unsigned char* Image::data(unsigned int row, unsigned int offset)
{
  return _buffer.get() + _index(row, offset);
}

const unsigned char* Image::data(unsigned int row, unsigned int offset) const
{
  return _buffer.get() + _index(row, offset);
}

} // namespace orvex::render::gl
