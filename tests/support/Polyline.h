#pragma once

#include "render/Edge2D.h"

#include <utility>

/// An edge along any points.
struct Polyline : orvex::render::Edge2D
{
  using Points = std::vector<orvex::render::Point2D<double>>;

  explicit Polyline(Points all) : points(std::move(all)) {}
  void evaluate(Points& result) const override { result = points; }

  Points points;
};
