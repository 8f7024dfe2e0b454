#pragma once

#include "foundation/counted/Referenced.h"
#include "render/layout/LayoutInfo2D.h"

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex
{
class Tree;
}

namespace orvex::render
{

/// A way to place the nodes of a tree in the unit plane. Each edge is an elbow: from the node along
/// its column to the child's row, then along that row to the child. A node's box is the smallest
/// around the positions of its clade.
class TreeLayout2D : public Kelmar::Base::Referenced
{
public:
  /// \return null if there is nothing to lay out
  virtual boost::intrusive_ptr<LayoutInfo2D> layout(boost::shared_ptr<Tree> tree) = 0;
};

} // namespace orvex::render
