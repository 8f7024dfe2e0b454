#pragma once

#include "foundation/math/Matrix44.h"
#include "render/Point2D.h"

namespace orvex::render::gl
{

using Kelmar::Math::Vector2f;
using Kelmar::Math::Vector4f;

/// A layout's point as OpenGL receives it.
inline Vector2f toVertex(const Point2D<double>& point)
{
  return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

// Arrays of these go to OpenGL as they lie in memory.
static_assert(sizeof(Vector2f) == 2 * sizeof(float));
static_assert(sizeof(Vector4f) == 4 * sizeof(float));

} // namespace orvex::render::gl
