#include "render/layout/LayoutInfo2D.h"

#include "foundation/progress/Work.h"
#include "tree/model/OpeningStages.h"

#include <algorithm>

namespace orvex::render
{

static_assert(sizeof(NodeLayoutInfo) == 64);

boost::intrusive_ptr<LayoutInfo2D> LayoutInfo2D::make(unsigned int numberOfNodes)
{
  boost::intrusive_ptr<LayoutInfo2D> result(new LayoutInfo2D);
  Kelmar::Progress::Work work(OpeningStages::layout, numberOfNodes, 0.0, shareOfLayout);
  for (std::size_t left = numberOfNodes; left > 0;)
  {
    const std::size_t size = std::min(left, _blockSize);
    result->_blocks.push_back({std::vector<NodeLayoutInfo>(size), size});
    left -= size;
    work.done(size);
  }
  return result;
}

void LayoutInfo2D::release(int node)
{
  Block& block = _blocks.at(static_cast<std::size_t>(node) / _blockSize);
  if (--block.inUse == 0)
  {
    block.records = std::vector<NodeLayoutInfo>();
  }
}

} // namespace orvex::render
