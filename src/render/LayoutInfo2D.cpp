#include "render/LayoutInfo2D.h"

namespace orvex::render
{

LayoutInfo2D::LayoutInfo2D(unsigned int numberOfNodes)
{
  _nodes.reserve(numberOfNodes);
  for (unsigned int i = 0; i < numberOfNodes; ++i)
  {
    _nodes.emplace_back(new NodeLayoutInfo);
  }
}

NodeLayoutInfo& LayoutInfo2D::layoutInfoForNode(int node)
{
  // A negative id becomes one beyond any vector.
  return *_nodes.at(static_cast<std::size_t>(node));
}

} // namespace orvex::render
