#include "render/camera/CameraCladogram.h"

#include "render/camera/Viewport.h"

#include <algorithm>
#include <limits>

namespace orvex::render
{
namespace Detail
{
namespace
{

constexpr unsigned int verticalMargins = 16;
constexpr unsigned int leastPixelsForText = 150;

// An area with no room beside the labels: the tree takes a third of it, and its right edge cuts the
// names.
unsigned int widthOfTree(unsigned int area, unsigned int pixelsForText)
{
  return area > pixelsForText ? area - pixelsForText : std::max(area / 3, 1u);
}

unsigned int heightOfTree(unsigned int area)
{
  return area > verticalMargins ? area - verticalMargins : 1;
}

unsigned int levelsForZoom(double maximumZoom)
{
  if (maximumZoom <= 1.0)
  {
    return 1;
  }
  if (maximumZoom <= 10.0)
  {
    return static_cast<unsigned int>(maximumZoom + 0.5);
  }
  if (maximumZoom <= 100.0)
  {
    return 10;
  }
  return std::max(1u, static_cast<unsigned int>(maximumZoom / 10.0));
}

} // namespace
} // namespace Detail

void CameraCladogram::pan(double, double y)
{
  _position.y += y;
}

void CameraCladogram::zoomByAmount(double amount)
{
  _zoom += amount;
  // The lower limit comes last: for a tree that fits, the upper one is below 1.0.
  _zoom = std::min(_maximumZoom, _zoom);
  _zoom = std::max(1.0, _zoom);
}

void CameraCladogram::reset()
{
  _position = _startPosition;
  _zoom = _startZoom;
}

void CameraCladogram::updateZoomInformation(unsigned int numberOfLeaves, unsigned int pixelsPerLeaf,
                                            const Viewport& viewport)
{
  const unsigned int maximum = (numberOfLeaves + 1) * pixelsPerLeaf / viewport.height;
  _maximumZoom = maximum;
  _numberOfZoomLevels = Detail::levelsForZoom(_maximumZoom);
}

unsigned int CameraCladogram::zoomLevel() const
{
  const double level = _zoom / _maximumZoom * _numberOfZoomLevels;
  constexpr unsigned int most = std::numeric_limits<unsigned int>::max();
  if (level < 0.0)
  {
    return 0;
  }
  return level < most ? static_cast<unsigned int>(level) : most;
}

void CameraCladogram::horizontalPixelsForText(unsigned int pixels)
{
  _horizontalPixelsForText = std::max(pixels, Detail::leastPixelsForText);
}

Kelmar::Math::Matrix44d CameraCladogram::viewMatrix(const Viewport& viewport) const
{
  using Kelmar::Math::Matrix44d;
  const unsigned int width = Detail::widthOfTree(viewport.width, _horizontalPixelsForText);
  const unsigned int height = Detail::heightOfTree(viewport.height);
  return Matrix44d::translation({0.0, viewport.height * 0.5, 0.0}) *
         Matrix44d::scale({double(width), double(height), 1.0}) *
         Matrix44d::scale({1.0, _zoom, 1.0}) *
         Matrix44d::translation({_position.x, _position.y, 0.0});
}

} // namespace orvex::render
