#include "render/camera/DrawingPass.h"

#include "render/camera/CameraCladogram.h"

namespace orvex::render
{

Kelmar::Math::Matrix44d DrawingPass::computeLocalToScreenMatrix() const
{
  return viewport.computeWindowMatrix() * projection * modelView;
}

Kelmar::Math::Matrix44d mainProjection(const Viewport& area)
{
  return Kelmar::Math::Matrix44d::orthographic(0.0, area.width, 0.0, area.height, -10.0, 10.0);
}

DrawingPass mainPass(const CameraCladogram& camera, const Viewport& area)
{
  return {area, mainProjection(area), camera.viewMatrix(area)};
}

} // namespace orvex::render
