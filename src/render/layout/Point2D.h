#pragma once

namespace orvex::render
{

/// A point of the plane.
template <class T>
struct Point2D
{
  T x = T();
  T y = T();
};

} // namespace orvex::render
