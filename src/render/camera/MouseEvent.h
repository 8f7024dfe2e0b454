#pragma once

#include "foundation/math/Matrix44.h"

namespace orvex::render
{

/// A mouse event, independent of pixels and of the widget library.
struct MouseEvent
{
  /// Normalised over the whole widget: -1.0 at the left and bottom edges, 1.0 at right and top.
  Kelmar::Math::Vector2d position;
  /// The buttons that count as held after the event.
  bool left = false;
  bool middle = false;
  bool right = false;
};

} // namespace orvex::render
