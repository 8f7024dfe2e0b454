#include "render/gl/scene/SceneBuilder.h"

#include "render/LayoutInfo2D.h"
#include "render/gl/scene/RenderNode.h"
#include "render/gl/scene/RenderTaxonLabels.h"
#include "tree/Tree.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace orvex::render::gl
{
namespace Detail
{

// A label starts a little to the right of its branch's end, in world units.
constexpr double labelGap = 0.001;

boost::intrusive_ptr<RenderNode> buildRenderNode(int node, const boost::shared_ptr<Tree>& tree,
                                                 const boost::intrusive_ptr<LayoutInfo2D>& layout)
{
  boost::intrusive_ptr<RenderNode> result(new RenderNode(node, tree, layout));
  result->reserve(tree->getNumChildren(node));
  for (auto [child, end] = tree->getChildren(node); child != end; ++child)
  {
    result->addChild(buildRenderNode(static_cast<int>(*child), tree, layout));
  }
  return result;
}

boost::intrusive_ptr<RenderTaxonLabels> buildLabels(Tree& tree, LayoutInfo2D& layout)
{
  boost::intrusive_ptr<RenderTaxonLabels> labels(new RenderTaxonLabels);
  std::vector<int> leaves;
  tree.getLeafNodes(tree.getRootNodeId(), leaves);
  labels->reserve(leaves.size());
  for (const int leaf : leaves)
  {
    Point2D<double> position = layout.layoutInfoForNode(leaf).position;
    position.x += labelGap;
    labels->addText(position, tree.getName(leaf));
  }
  return labels;
}

unsigned int widthInPixels(const Box2D& box)
{
  const double width = box.maximum.x - box.minimum.x + 0.5;
  return static_cast<unsigned int>(
      std::clamp(width, 0.0, double(std::numeric_limits<unsigned int>::max())));
}

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
  root->addChild(Detail::buildRenderNode(_tree->getRootNodeId(), _tree, layout));
  _root = root;
}

} // namespace orvex::render::gl
