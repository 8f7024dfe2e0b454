#include "render/gl/scene/SceneBuilder.h"

#include "foundation/progress/Work.h"
#include "render/gl/draw/LineStrip.h"
#include "render/gl/scene/RenderNode.h"
#include "render/gl/scene/RenderTaxonLabels.h"
#include "render/layout/LayoutInfo2D.h"
#include "tree/model/OpeningStages.h"
#include "tree/model/Tree.h"

#include <boost/range/iterator_range.hpp>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

using Kelmar::Progress::Work;

// Which share of the scene the labels take.
constexpr double shareOfLabels = 0.3;
// A label starts a little to the right of its branch's end, in world units.
constexpr double labelGap = 0.001;

/// What the recursion shares. One reference in place of several keeps its frames small.
struct Lines
{
  const boost::shared_ptr<Tree>& tree;
  const boost::intrusive_ptr<LayoutInfo2D>& layout;
  Work& work;
  boost::intrusive_ptr<LineStrip> none{};
  bool ownsLayout = false;
};

// All leaves share one empty strip.
boost::intrusive_ptr<LineStrip> buildLines(int node, const Lines& lines)
{
  EdgeList& edges = lines.layout->layoutInfoForNode(node).edges;
  if (edges.empty())
  {
    return lines.none;
  }
  return LineStrip::make(lines.ownsLayout ? std::move(edges) : EdgeList(edges));
}

boost::intrusive_ptr<RenderNode> buildRenderNode(int node, const Lines& lines)
{
  boost::intrusive_ptr<RenderNode> result(
      new RenderNode(node, lines.tree, lines.layout, buildLines(node, lines)));
  // Released at once, so that memory need not hold the whole layout and the whole scene. The record
  // of the root is needed for every node.
  if (lines.ownsLayout && node != lines.tree->getRootNodeId())
  {
    lines.layout->release(node);
  }
  lines.work.done();
  result->reserve(lines.tree->getNumChildren(node));
  for (const int child : boost::make_iterator_range(lines.tree->getChildren(node)))
  {
    result->addChild(buildRenderNode(child, lines));
  }
  return result;
}

boost::intrusive_ptr<RenderTaxonLabels> buildLabels(Tree& tree, LayoutInfo2D& layout)
{
  boost::intrusive_ptr<RenderTaxonLabels> labels(new RenderTaxonLabels);
  std::vector<int> leaves;
  tree.getLeafNodes(tree.getRootNodeId(), leaves);
  labels->reserve(leaves.size());
  Work work(OpeningStages::scene, leaves.size(), 0.0, shareOfLabels);
  for (const int leaf : leaves)
  {
    Point2D<double> position = layout.layoutInfoForNode(leaf).position;
    position.x += labelGap;
    labels->addText(position, tree.getName(leaf));
    work.done();
  }
  return labels;
}

unsigned int widthInPixels(const Box2D& box)
{
  const double width = box.maximum.x - box.minimum.x + 0.5;
  return static_cast<unsigned int>(
      std::clamp(width, 0.0, double(std::numeric_limits<unsigned int>::max())));
}

} // namespace
} // namespace Detail

SceneBuilder::SceneBuilder(boost::shared_ptr<Tree> tree) : _tree(std::move(tree)) {}

void SceneBuilder::buildScene(boost::intrusive_ptr<LayoutInfo2D> layout)
{
  if (!_tree || !layout)
  {
    return;
  }
  const boost::intrusive_ptr<RenderTaxonLabels> labels = Detail::buildLabels(*_tree, *layout);
  _maximumTextLength = Detail::widthInPixels(labels->boundingBox());
  const boost::intrusive_ptr<Group> root(new Group);
  root->addChild(labels);
  Detail::Work work(OpeningStages::scene, _tree->getNumberOfNodes(), Detail::shareOfLabels);
  const Detail::Lines lines{_tree, layout, work, LineStrip::make({}), layout->refCount() == 1};
  root->addChild(Detail::buildRenderNode(_tree->getRootNodeId(), lines));
  _root = root;
}

} // namespace orvex::render::gl
