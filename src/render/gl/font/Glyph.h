#pragma once

#include "foundation/counted/Referenced.h"
#include "render/gl/device/ObjectName.h"

#include <memory>

namespace orvex::render::gl
{

/// One rendered character: its coverage, its metrics in pixels, and its own alpha texture, made
/// when first needed. The texture exists until its context ends.
class Glyph : public Kelmar::Base::Referenced
{
public:
  /// Size of the bitmap in pixels; its bytes are zero.
  Glyph(unsigned int width, unsigned int height);

  unsigned int width() const { return _width; }
  unsigned int height() const { return _height; }
  /// One byte of coverage for each pixel, the top row first.
  unsigned char* buffer() { return _buffer.get(); }
  const unsigned char* buffer() const { return _buffer.get(); }

  /// From this character's pen to the next one's.
  double horizontalAdvance() const { return _horizontalAdvance; }
  void horizontalAdvance(double advance) { _horizontalAdvance = advance; }

  /// From the pen to the left edge of the bitmap, and from the baseline to its bottom edge, which
  /// is negative where a part hangs below.
  void horizontalBearing(double& x, double& y) const
  {
    x = _horizontalBearingX;
    y = _horizontalBearingY;
  }
  void setHorizontalBearing(double x, double y);

  /// Binds the texture. Needs a current context.
  void apply();

private:
  TextureName _texture;
  std::unique_ptr<unsigned char[]> _buffer;
  unsigned int _width;
  unsigned int _height;
  double _horizontalAdvance = 0.0;
  double _horizontalBearingX = 0.0;
  double _horizontalBearingY = 0.0;
};

} // namespace orvex::render::gl
