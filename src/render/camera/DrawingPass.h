#pragma once

#include "foundation/math/Matrix44.h"
#include "render/camera/Viewport.h"
#include "render/layout/Box2D.h"

namespace orvex::render
{

class CameraCladogram;

/// How one drawing pass maps the world to the window.
struct DrawingPass
{
  /// The pixels that are drawn into.
  Viewport viewport;
  /// From what the model-view matrix gives to clip space.
  Kelmar::Math::Matrix44d projection;
  /// From world coordinates to those that the projection takes.
  Kelmar::Math::Matrix44d modelView;

  /// From world coordinates to window coordinates.
  Kelmar::Math::Matrix44d computeLocalToScreenMatrix() const;
};

/// How a window is divided: the thumbnail takes the left tenth, the main area the rest.
struct WindowAreas
{
  WindowAreas(unsigned int width, unsigned int height);

  Viewport thumbnail;
  Viewport main;
};

/// The projection of the main area: one unit is one pixel, the origin is at the lower left.
/// \pre the area is not empty
Kelmar::Math::Matrix44d mainProjection(const Viewport& area);

/// The pass that draws what a camera sees into the main area.
/// \pre the area is not empty
DrawingPass mainPass(const CameraCladogram& camera, const Viewport& area);

/// The pass that draws the whole tree into the column of the thumbnail.
DrawingPass thumbnailPass(const Viewport& column);

/// The part of the world that the main area shows, as the thumbnail's rectangle draws it: its right
/// edge follows a formula of its own.
/// \throws std::runtime_error  if the pass's matrices can't be inverted
Box2D shownPart(const DrawingPass& mainPass);

} // namespace orvex::render
