#include "render/layout/LayoutInfo2D.h"

#include "foundation/progress/Work.h"
#include "tree/model/OpeningStages.h"

#include <stdexcept>

namespace orvex::render
{

static_assert(sizeof(NodeLayoutInfo) == 80);

LayoutInfo2D::LayoutInfo2D(unsigned int numberOfNodes)
{
  Kelmar::Progress::Work work(OpeningStages::layout, numberOfNodes, 0.0, shareOfLayout);
  _nodes.reserve(numberOfNodes);
  for (unsigned int i = 0; i < numberOfNodes; ++i)
  {
    _nodes.emplace_back(new NodeLayoutInfo);
    work.done();
  }
}

NodeLayoutInfo& LayoutInfo2D::layoutInfoForNode(int node)
{
  // A negative id becomes an index that is too large for any vector.
  NodeLayoutInfo* record = _nodes.at(static_cast<std::size_t>(node)).get();
  return record ? *record : throw std::out_of_range("The record of this node was released.");
}

} // namespace orvex::render
