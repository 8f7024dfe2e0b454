#pragma once

#include "render/layout/TreeLayout2D.h"

namespace orvex::render
{

/// The rectangular cladogram: all leaves in one column at x = 1.0, evenly spaced from y = 1.0
/// downward in leaf order; the root at x = 0.0; a parent at the mean height of its children, joined
/// to each by an elbow.
///
/// The x of a node depends on its height above its deepest leaf, in columns whose distance shrinks
/// logarithmically towards the leaves. Branch lengths are not used. Only what the root reaches gets
/// a place: of a file with several trees, the last one fills the column. A tree of one node lies at
/// (1.0, 1.0). Recurses once for each level.
class LayoutCladogram : public TreeLayout2D
{
public:
  boost::intrusive_ptr<LayoutInfo2D> layout(boost::shared_ptr<Tree> tree) override;
};

} // namespace orvex::render
