#include "render/layout/LayoutCladogram.h"

#include "foundation/progress/Work.h"
#include "tree/model/OpeningStages.h"
#include "tree/model/Tree.h"

#include <boost/range/iterator_range.hpp>

#include <algorithm>
#include <cmath>

namespace orvex::render
{
namespace Detail
{
namespace
{

using Kelmar::Progress::Work;

/// An elbow: along the parent's column to the child's height, then across to the child.
class CladogramEdge : public Edge2D
{
public:
  void join(const Point2D<double>& start, const Point2D<double>& end)
  {
    _start = start;
    _end = end;
  }

  void evaluate(std::vector<Point2D<double>>& points) const override
  {
    points.resize(3);
    points[0] = _start;
    points[1] = {_start.x, _end.y};
    points[2] = _end;
  }

private:
  Point2D<double> _start;
  Point2D<double> _end;
};

/// The working state of one layout.
struct LayoutInfo
{
  const Tree& tree;
  Work& work;
  boost::intrusive_ptr<LayoutInfo2D> info{};
  double leafSpacing = 0.0;
  double nextLeafY = 1.0;
  std::vector<double> columns{};
  unsigned int maximumDepth = 0;
  // Every edge in its turn, before it goes into a list.
  boost::intrusive_ptr<CladogramEdge> edge{new CladogramEdge};
  EdgeList::Writer edges{};
};

/// What the root reaches.
struct Extent
{
  unsigned int leaves = 0;
  // Edges on the longest way down.
  unsigned int depth = 0;
};

void measure(const Tree& tree, int node, unsigned int depth, Extent& extent)
{
  if (tree.isLeaf(node))
  {
    ++extent.leaves;
    extent.depth = std::max(extent.depth, depth);
    return;
  }
  for (const int child : boost::make_iterator_range(tree.getChildren(node)))
  {
    measure(tree, child, depth + 1, extent);
  }
}

std::vector<double> makeColumns(unsigned int maximumDepth)
{
  if (maximumDepth == 0)
  {
    return {1.0}; // the tree's one node is a leaf
  }
  std::vector<double> columns(maximumDepth + 1);
  for (unsigned int i = 0; i <= maximumDepth; ++i)
  {
    columns[i] = std::log10((i / static_cast<double>(maximumDepth)) * 9.0 + 1.0);
  }
  return columns;
}

// To be called when the children are placed. Computes the height above the leaves, the edges and
// the box of the clade.
void placeParent(int node, NodeLayoutInfo& record, LayoutInfo& info)
{
  const unsigned int numberOfChildren = info.tree.getNumChildren(node);
  double sum = 0.0;
  for (const int child : boost::make_iterator_range(info.tree.getChildren(node)))
  {
    const NodeLayoutInfo& below = info.info->layoutInfoForNode(child);
    record.depthToLeaf = std::max(record.depthToLeaf, below.depthToLeaf + 1);
    sum += below.position.y;
  }
  record.position = {info.columns[info.maximumDepth - record.depthToLeaf], sum / numberOfChildren};
  record.boundingBox.add(record.position);
  for (const int child : boost::make_iterator_range(info.tree.getChildren(node)))
  {
    const NodeLayoutInfo& below = info.info->layoutInfoForNode(child);
    info.edge->join(record.position, below.position);
    info.edges.add(*info.edge);
    record.boundingBox.add(below.position);
    record.boundingBox.add(below.boundingBox);
  }
  record.edges = info.edges.finish();
}

void layoutChildren(int node, LayoutInfo& info, unsigned int depth)
{
  NodeLayoutInfo& record = info.info->layoutInfoForNode(node);
  record.depth = depth;
  info.work.done();
  if (info.tree.isLeaf(node))
  {
    record.position = {info.columns[info.maximumDepth], info.nextLeafY};
    info.nextLeafY -= info.leafSpacing;
    record.boundingBox.add(record.position);
    return;
  }
  for (const int child : boost::make_iterator_range(info.tree.getChildren(node)))
  {
    layoutChildren(child, info, depth + 1);
  }
  placeParent(node, record, info);
}

} // namespace
} // namespace Detail

boost::intrusive_ptr<LayoutInfo2D> LayoutCladogram::layout(boost::shared_ptr<Tree> tree)
{
  if (!tree || tree->getRootNodeId() < 0)
  {
    return nullptr;
  }
  const int root = tree->getRootNodeId();
  const unsigned int nodes = tree->getNumberOfNodes();
  const boost::intrusive_ptr<LayoutInfo2D> records = LayoutInfo2D::make(nodes);
  Detail::Work work(OpeningStages::layout, nodes, LayoutInfo2D::shareOfLayout);
  Detail::LayoutInfo info{*tree, work, records};
  Detail::Extent extent;
  Detail::measure(*tree, root, 0, extent);
  info.leafSpacing = 1.0 / extent.leaves;
  info.maximumDepth = extent.depth;
  info.columns = Detail::makeColumns(info.maximumDepth);
  Detail::layoutChildren(root, info, 0);
  return info.info;
}

} // namespace orvex::render
