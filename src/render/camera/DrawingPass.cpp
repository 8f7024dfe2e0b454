#include "render/camera/DrawingPass.h"

#include "foundation/math/InverseMatrix.h"
#include "render/camera/CameraCladogram.h"

namespace orvex::render
{

using Kelmar::Math::Matrix44d;
using Kelmar::Math::Vector3d;

Matrix44d DrawingPass::computeLocalToScreenMatrix() const
{
  return viewport.computeWindowMatrix() * projection * modelView;
}

WindowAreas::WindowAreas(unsigned int width, unsigned int height)
{
  constexpr double thumbnailShare = 0.1;
  const auto thumbnailWidth = static_cast<unsigned int>(width * thumbnailShare);
  thumbnail.set(0, 0, thumbnailWidth, height);
  main.set(thumbnailWidth, 0, width - thumbnailWidth, height);
}

Matrix44d mainProjection(const Viewport& area)
{
  return Matrix44d::orthographic(0.0, area.width, 0.0, area.height, -10.0, 10.0);
}

DrawingPass mainPass(const CameraCladogram& camera, const Viewport& area)
{
  return {area, mainProjection(area), camera.viewMatrix(area)};
}

DrawingPass thumbnailPass(const Viewport& column)
{
  // Together they take the unit square to the whole column.
  return {column, Matrix44d::orthographic(-0.5, 0.5, -0.5, 0.5, -10.0, 10.0),
          Matrix44d::translation({-0.5, -0.5, -2.5})};
}

Box2D shownPart(const DrawingPass& mainPass)
{
  const Matrix44d toWorld = inverseOrThrow(mainPass.computeLocalToScreenMatrix());
  const Viewport& area = mainPass.viewport;
  // The second corner is not moved by the viewport's origin: the rectangle is defined so.
  const Vector3d a = toWorld * Vector3d(area.x, area.y, 0.0);
  const Vector3d b = toWorld * Vector3d(area.width, area.height, 0.0);
  const double dx = b[0] - a[0];
  const double dy = b[1] - a[1];
  // Not simply b: a + (b - a) is rounded and can differ from b, and the corners are defined by it.
  return {{a[0], a[1]}, {a[0] + dx, a[1] + dy}};
}

} // namespace orvex::render
