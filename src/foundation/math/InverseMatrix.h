#pragma once

#include "foundation/math/Matrix44.h"

#include <stdexcept>

namespace Kelmar::Math
{

/// \throws std::runtime_error  if the matrix has no inverse
inline Matrix44d inverseOrThrow(const Matrix44d& matrix)
{
  Matrix44d inverse;
  if (!matrix.inverse(inverse))
  {
    throw std::runtime_error("Error 2318439298: Matrix inverse does not exist");
  }
  return inverse;
}

} // namespace Kelmar::Math
