#pragma once

#include "foundation/math/Matrix44.h"

namespace orvex::render
{

/// A rectangle of pixels. x and y are its lower left corner in window coordinates of OpenGL.
struct Viewport
{
  unsigned int x = 0;
  unsigned int y = 0;
  unsigned int width = 0;
  unsigned int height = 0;

  void set(unsigned int newX, unsigned int newY, unsigned int newWidth, unsigned int newHeight);

  bool empty() const { return width == 0 || height == 0; }

  /// From clip space to window coordinates.
  Kelmar::Math::Matrix44d computeWindowMatrix() const;
};

} // namespace orvex::render
