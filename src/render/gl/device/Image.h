#pragma once

#include "foundation/counted/Referenced.h"

#include <cstddef>
#include <memory>

namespace orvex::render::gl
{

/// A block of pixels in client memory: one byte for each channel, rows without gaps.
class Image : public Kelmar::Base::Referenced
{
public:
  /// Allocates the pixels, whose values are left open.
  /// \param format  a pixel format of OpenGL, such as GL_RGBA
  /// \throws std::runtime_error  for another format
  /// \throws std::bad_alloc  if there is no memory for the pixels
  /// After both, size, format and pixels are those of before.
  void init(unsigned int width, unsigned int height, unsigned int format);

  unsigned int width() const { return _width; }
  unsigned int height() const { return _height; }
  unsigned int format() const { return _format; }
  /// \throws std::runtime_error  before init
  unsigned int numChannels() const;

  unsigned char* buffer() { return _buffer.get(); }
  const unsigned char* buffer() const { return _buffer.get(); }
  /// \param offset  in bytes within the row
  unsigned char* data(unsigned int row, unsigned int offset);
  const unsigned char* data(unsigned int row, unsigned int offset) const;

private:
  std::size_t _index(unsigned int row, unsigned int offset) const;

  unsigned int _width = 0;
  unsigned int _height = 0;
  unsigned int _format = 0;
  std::unique_ptr<unsigned char[]> _buffer;
};

} // namespace orvex::render::gl
