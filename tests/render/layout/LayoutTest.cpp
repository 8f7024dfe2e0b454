#include "generate/TreeGenerator.h"
#include "render/layout/LayoutCladogram.h"
#include "support/Outcome.h"
#include "support/Polyline.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"

#include <boost/make_shared.hpp>

#include <cmath>

using namespace orvex::render;
using orvex::Tree;

static boost::intrusive_ptr<LayoutInfo2D> layOut(const boost::shared_ptr<Tree>& tree)
{
  return boost::intrusive_ptr<LayoutCladogram>(new LayoutCladogram)->layout(tree);
}

static void expectPoint(const Point2D<double>& actual, double x, double y)
{
  EXPECT_NEAR(actual.x, x, 1e-12);
  EXPECT_NEAR(actual.y, y, 1e-12);
}

/// Compares a clade with the definition, computed by walks of its subtree.
static void expectByDefinition(Tree& tree, LayoutInfo2D& info, int id, unsigned int depth)
{
  const int deepest = tree.findMaximumDepthToLeaf(tree.getRootNodeId());
  const int height = tree.findMaximumDepthToLeaf(id);
  const NodeLayoutInfo& node = info.layoutInfoForNode(id);
  EXPECT_EQ(node.depth, depth);
  EXPECT_EQ(node.depthToLeaf, unsigned(height));
  EXPECT_EQ(node.position.x, std::log10(double(deepest - height) / deepest * 9.0 + 1.0));
  const std::vector<Polyline::Points> edges = linesOf(node.edges);
  ASSERT_EQ(edges.size(), tree.getNumChildren(id));
  std::vector<int> leaves;
  tree.getLeafNodes(id, leaves);
  const double lowest = info.layoutInfoForNode(leaves.back()).position.y;
  expectPoint(node.boundingBox.minimum, node.position.x, lowest);
  expectPoint(node.boundingBox.maximum, 1.0, info.layoutInfoForNode(leaves.front()).position.y);
  double sum = 0.0;
  for (unsigned int i = 0; i < tree.getNumChildren(id); ++i)
  {
    const int child = tree.getChild(id, i);
    const Point2D<double> position = info.layoutInfoForNode(child).position;
    sum += position.y;
    const Polyline::Points& points = edges[i];
    ASSERT_EQ(points.size(), 3u);
    expectPoint(points[0], node.position.x, node.position.y);
    expectPoint(points[1], node.position.x, position.y);
    expectPoint(points[2], position.x, position.y);
    expectByDefinition(tree, info, child, depth + 1);
  }
  EXPECT_TRUE(tree.isLeaf(id) || node.position.y == sum / tree.getNumChildren(id));
}

TEST(Layout, AgreesWithItsDefinition)
{
  using orvex::generate::TreeShape;
  for (unsigned int leaves = 1; leaves < 200; leaves += leaves / 4 + 1)
  {
    SCOPED_TRACE(leaves);
    const TreeShape shapes[] = {TreeShape::Random, TreeShape::Polytomy, TreeShape::Ladder};
    const auto tree = orvex::NewickReader().parseContents(
        orvex::generate::TreeGenerator(leaves).newick(shapes[leaves % 3], leaves, true));
    const auto info = layOut(tree);
    expectByDefinition(*tree, *info, 0, 0);
    std::vector<int> ids;
    tree->getLeafNodes(0, ids);
    for (unsigned int i = 0; i < leaves; ++i)
    {
      expectPoint(info->layoutInfoForNode(ids[i]).position, 1.0, 1.0 - double(i) / leaves);
    }
  }
}

TEST(Layout, OfNoTreeIsNull)
{
  EXPECT_EQ(layOut(nullptr), nullptr);
  EXPECT_EQ(layOut(boost::make_shared<Tree>()), nullptr) << "no root was set";
}

TEST(Layout, FillsTheColumnWithTheTreeThatTheRootReaches)
{
  const auto info = layOut(orvex::NewickReader().parseContents("(a,b,c)(d,e)"));
  EXPECT_FALSE(info->layoutInfoForNode(0).boundingBox.valid()) << "the reader left it behind";
  expectPoint(info->layoutInfoForNode(5).position, 1.0, 1.0);
  expectPoint(info->layoutInfoForNode(6).position, 1.0, 0.5);
  EXPECT_THROW(info->layoutInfoForNode(7), std::out_of_range);
}
