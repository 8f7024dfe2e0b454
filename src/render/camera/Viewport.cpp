#include "render/camera/Viewport.h"

namespace orvex::render
{

void Viewport::set(unsigned int newX, unsigned int newY, unsigned int newWidth,
                   unsigned int newHeight)
{
  x = newX;
  y = newY;
  width = newWidth;
  height = newHeight;
}

Kelmar::Math::Matrix44d Viewport::computeWindowMatrix() const
{
  using Kelmar::Math::Matrix44d;
  return Matrix44d::translation({double(x), double(y), 0.0}) *
         Matrix44d::scale({width * 0.5, height * 0.5, 0.5}) *
         Matrix44d::translation({1.0, 1.0, 1.0});
}

} // namespace orvex::render
