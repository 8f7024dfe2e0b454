#pragma once

#include "render/layout/Point2D.h"

#include <algorithm>
#include <limits>

namespace orvex::render
{

/// An axis-aligned box. Empty at first: the first point added sets all four values.
struct Box2D
{
  Point2D<double> minimum{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  Point2D<double> maximum{std::numeric_limits<double>::lowest(),
                          std::numeric_limits<double>::lowest()};

  /// False for the empty box; true for the box of a single point.
  bool valid() const { return maximum.x >= minimum.x && maximum.y >= minimum.y; }

  /// Grows to hold the point. A coordinate that is not a number changes nothing.
  void add(const Point2D<double>& p)
  {
    minimum.x = minimum.x > p.x ? p.x : minimum.x;
    minimum.y = minimum.y > p.y ? p.y : minimum.y;
    maximum.x = maximum.x < p.x ? p.x : maximum.x;
    maximum.y = maximum.y < p.y ? p.y : maximum.y;
  }

  /// Grows to hold the other box, if that is valid.
  void add(const Box2D& other)
  {
    if (other.valid())
    {
      add(other.minimum);
      add(other.maximum);
    }
  }

  /// True if the boxes overlap or touch.
  bool intersects(const Box2D& other) const
  {
    return std::min(maximum.x, other.maximum.x) >= std::max(minimum.x, other.minimum.x) &&
           overlapsInY(other);
  }

  /// True if the ranges in y overlap or touch.
  bool overlapsInY(const Box2D& other) const
  {
    return std::min(maximum.y, other.maximum.y) >= std::max(minimum.y, other.minimum.y);
  }
};

} // namespace orvex::render
