#pragma once

#include "foundation/counted/Referenced.h"
#include "render/layout/Point2D.h"

#include <vector>

namespace orvex::render
{

/// The line from a node to one of its children, in world units.
class Edge2D : public Kelmar::Base::Referenced
{
public:
  /// Overwrites \p points with the edge's polyline, from the parent to the child.
  virtual void evaluate(std::vector<Point2D<double>>& points) const = 0;
};

} // namespace orvex::render
