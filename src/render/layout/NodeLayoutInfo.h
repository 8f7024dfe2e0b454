#pragma once

#include "render/layout/Box2D.h"
#include "render/layout/EdgeList.h"
#include "render/layout/Point2D.h"

namespace orvex::render
{

/// Where one node of a tree lies, in world units: the tree fills x and y from 0.0 to 1.0, y upward.
///
/// A plain record, not a counted object: there are two for each leaf, and they exist for a moment.
struct NodeLayoutInfo
{
  Point2D<double> position;
  /// One for each child, in child order.
  EdgeList edges;
  /// The box of the whole clade; empty for a node that the layout didn't reach.
  Box2D boundingBox;
  /// Number of edges on the longest way down to a leaf.
  unsigned int depthToLeaf = 0;
  /// Number of edges from the root.
  unsigned int depth = 0;
};

} // namespace orvex::render
