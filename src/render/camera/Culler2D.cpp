#include "render/camera/Culler2D.h"

#include "foundation/math/InverseMatrix.h"

namespace orvex::render
{

Culler2D::Culler2D(const Kelmar::Math::Matrix44d& modelView,
                   const Kelmar::Math::Matrix44d& projection)
{
  const Kelmar::Math::Matrix44d inverse = inverseOrThrow(projection * modelView);
  const Kelmar::Math::Vector3d low = inverse * Kelmar::Math::Vector3d(-1.0, -1.0, -1.0);
  const Kelmar::Math::Vector3d high = inverse * Kelmar::Math::Vector3d(1.0, 1.0, 1.0);
  _box.minimum = {low[0], low[1]};
  _box.maximum = {high[0], high[1]};
}

} // namespace orvex::render
