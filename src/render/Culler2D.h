#pragma once

#include "foundation/counted/Referenced.h"
#include "foundation/math/Matrix44.h"
#include "render/Box2D.h"

namespace orvex::render
{

/// Tells which boxes of the world a view shows.
class Culler2D : public Kelmar::Base::Referenced
{
public:
  /// \throws std::runtime_error  if the product of the matrices can't be inverted
  Culler2D(const Kelmar::Math::Matrix44d& modelView, const Kelmar::Math::Matrix44d& projection);

  /// The part of the world that the view shows, in world units.
  const Box2D& box() const { return _box; }

  /// True if nothing of \p box, in world units, is to be seen. What only touches the view is seen;
  /// a box that is not valid never is.
  bool isCulled(const Box2D& box) const { return !box.intersects(_box); }

private:
  Box2D _box;
};

} // namespace orvex::render
