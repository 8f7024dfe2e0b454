#pragma once

#include "foundation/counted/Referenced.h"
#include "foundation/math/Matrix44.h"
#include "render/layout/Box2D.h"

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

  /// True if no part of \p box, in world units, is in the view. A box that only touches the view is
  /// not culled; one that is not valid always is.
  bool isCulled(const Box2D& box) const { return !box.intersects(_box); }

private:
  Box2D _box;
};

} // namespace orvex::render
