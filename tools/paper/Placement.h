#pragma once

#include "paper/Canvas.h"
#include "render/camera/Viewport.h"

namespace orvex::paper
{

/// Where the pixels of a window lie on a sheet.
struct Placement
{
  /// The window's lower left corner, on the sheet.
  Point origin;
  /// How many points a pixel is.
  double scale = 1.0;

  /// \param pixels  in the window, y upward
  Point toSheet(const Point& pixels) const
  {
    return {origin.x + pixels.x * scale, origin.y - pixels.y * scale};
  }
  Box2D toSheet(const render::Viewport& area) const
  {
    const Point low = toSheet(Point{double(area.x), double(area.y)});
    return {{low.x, low.y - area.height * scale}, {low.x + area.width * scale, low.y}};
  }
};

} // namespace orvex::paper
