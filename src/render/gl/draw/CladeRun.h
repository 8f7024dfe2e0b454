#pragma once

#include "render/layout/Box2D.h"

namespace orvex::render::gl
{

class PixelGrid;

/// Whether the lines of a clade light one run of pixels in one row, and nothing else: the pixels of
/// a line along the lower edge of the clade's box, from its left to its right end.
///
/// It is so where both the lower and the upper edge of the box fall into one row of pixels and the
/// box has a width, because
/// 1. the edges of a layout are elbows (see TreeLayout2D), and each begins at its node: the lines
///    of a clade are connected;
/// 2. going to pixels keeps the order of positions, rounding included: coordinates are scaled,
///    shifted and rounded, and pixelOf never falls where the position rises. So what lies between
///    the edges of the box falls between their pixels, which is that one row;
/// 3. a line lights all pixels from its first to its last. Connected lines in one row therefore
///    light a run without a gap. The box is the smallest around the clade's nodes: lines reach both
///    its ends, and no line goes beyond.
/// So it does not matter how many nodes the clade has, nor in which column each leaf lies. A box
/// without width can be a leaf, which has no lines.
bool lightsOneRun(const Box2D& clade, const PixelGrid& grid);

} // namespace orvex::render::gl
