#pragma once

#include "paper/Canvas.h"
#include "paper/PageFormat.h"
#include "render/camera/Viewport.h"

namespace orvex::paper
{

/// One of the sheets of a strip.
struct Sheet
{
  /// Which one it is, from 0, and of how many.
  unsigned int row, rows;
  unsigned int column, columns;
  /// Of the strip, in pixels.
  render::Viewport part;
  /// What of the strip's height it shows, from the top: 0.0 to 1.0.
  double begin, end;
  PageFormat format;
  /// Where the part lies, in points.
  Box2D box;
};

} // namespace orvex::paper
