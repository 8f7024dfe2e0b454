#pragma once

#include "foundation/math/Matrix44.h"
#include "render/camera/Viewport.h"
#include "render/layout/Point2D.h"

namespace orvex::render::gl
{

/// The pixels of a pass's area, laid over the world. Computes in double: a float can't distinguish
/// the rows of a large tree.
class PixelGrid
{
public:
  /// One unit is one pixel.
  PixelGrid() = default;
  /// \param localToScreen  scales by factors above 0 and shifts, but turns nothing
  PixelGrid(const Viewport& area, const Kelmar::Math::Matrix44d& localToScreen)
      : _scale{localToScreen[0], localToScreen[5]},
        _shift{localToScreen[12] - area.x, localToScreen[13] - area.y}
  {
  }

  /// From world units to pixels of the area, not of the window.
  Point2D<double> toPixels(const Point2D<double>& point) const
  {
    return {_scale.x * point.x + _shift.x, _scale.y * point.y + _shift.y};
  }

private:
  Point2D<double> _scale{1.0, 1.0};
  Point2D<double> _shift{0.0, 0.0};
};

} // namespace orvex::render::gl
