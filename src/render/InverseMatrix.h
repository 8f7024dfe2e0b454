#pragma once

#include "foundation/Matrix44.h"

#include <stdexcept>

namespace orvex::render
{

/// \throws std::runtime_error  if the matrix has no inverse
inline Kelmar::Math::Matrix44d inverseOrThrow(const Kelmar::Math::Matrix44d& matrix)
{
  Kelmar::Math::Matrix44d inverse;
  if (!matrix.inverse(inverse))
  {
    throw std::runtime_error("Error 2318439298: Matrix inverse does not exist");
  }
  return inverse;
}

} // namespace orvex::render
