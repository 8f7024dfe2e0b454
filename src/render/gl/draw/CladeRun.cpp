#include "render/gl/draw/CladeRun.h"

#include "render/gl/draw/PixelGrid.h"
#include "render/gl/draw/PixelRuns.h"

namespace orvex::render::gl
{

bool lightsOneRun(const Box2D& clade, const PixelGrid& grid)
{
  return clade.minimum.x < clade.maximum.x &&
         pixelOf(grid.toPixels(clade.minimum).y) == pixelOf(grid.toPixels(clade.maximum).y);
}

} // namespace orvex::render::gl
