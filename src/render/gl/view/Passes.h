#pragma once

#include "foundation/math/Matrix44.h"
#include "render/Viewport.h"
#include "render/gl/draw/State.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex::render::gl
{

/// Set-up that the drawing passes of a view share. All but makePassState need a current context.

void applyViewport(const Viewport& viewport);

/// Leaves the model-view matrix as the current one.
void applyMatrices(const Kelmar::Math::Matrix44d& projection,
                   const Kelmar::Math::Matrix44d& modelView);

boost::intrusive_ptr<State> makePassState(const Viewport& viewport,
                                          const Kelmar::Math::Matrix44d& projection,
                                          const Kelmar::Math::Matrix44d& modelView);

} // namespace orvex::render::gl
