#include "render/LayoutCladogram.h"
#include "tree/NewickReader.h"
#include "tree/RandomTree.h"
#include "tree/Tree.h"

#include <boost/make_shared.hpp>
#include <boost/thread.hpp>
#include <gtest/gtest.h>

#include <cmath>

namespace
{

using orvex::Tree;
using orvex::render::Box2D;
using orvex::render::LayoutInfo2D;
using orvex::render::NodeLayoutInfo;
using orvex::render::Point2D;
using TreePointer = boost::shared_ptr<Tree>;

boost::intrusive_ptr<LayoutInfo2D> layOut(TreePointer tree)
{
  const boost::intrusive_ptr<orvex::render::TreeLayout2D> layout(
      new orvex::render::LayoutCladogram);
  return layout->layout(tree);
}

TreePointer parse(const std::string& text)
{
  return orvex::NewickReader().parseContents(text);
}

void expectPoint(const Point2D<double>& actual, double x, double y)
{
  EXPECT_NEAR(actual.x, x, 1e-12);
  EXPECT_NEAR(actual.y, y, 1e-12);
}

TEST(Layout, IsNullWithoutATree)
{
  EXPECT_EQ(layOut(nullptr), nullptr);
  const auto tree = boost::make_shared<Tree>();
  tree->createNode();
  EXPECT_EQ(layOut(tree), nullptr) << "no root was set";
}

TEST(Layout, OfOneNodeLiesAtTheLeaves)
{
  const auto tree = boost::make_shared<Tree>();
  tree->setRootNodeId(tree->createNode());
  const auto info = layOut(tree);
  const NodeLayoutInfo& node = info->layoutInfoForNode(0);
  expectPoint(node.position, 1.0, 1.0);
  expectPoint(node.boundingBox.minimum, 1.0, 1.0);
  expectPoint(node.boundingBox.maximum, 1.0, 1.0);
}

TEST(Layout, HasARecordForEveryNode)
{
  const auto info = layOut(parse("(a,b)(c,d)")); // the first tree is left behind
  for (const int id : {-1, 6, 1000000})
  {
    EXPECT_THROW(info->layoutInfoForNode(id), std::out_of_range) << id;
  }
  for (const int id : {0, 1, 2})
  {
    const NodeLayoutInfo& unreached = info->layoutInfoForNode(id);
    expectPoint(unreached.position, 0.0, 0.0);
    EXPECT_TRUE(unreached.edges.empty());
    EXPECT_FALSE(unreached.boundingBox.valid());
  }
  expectPoint(info->layoutInfoForNode(5).position, 1.0, 0.75); // four leaves are in the store
}

/// The definition as it stands, with a walk of the subtree for everything.
void expectByDefinition(Tree& tree, LayoutInfo2D& info, int id, unsigned int depth)
{
  const int deepest = tree.findMaximumDepthToLeaf(tree.getRootNodeId());
  const int height = tree.findMaximumDepthToLeaf(id);
  const NodeLayoutInfo& node = info.layoutInfoForNode(id);
  EXPECT_EQ(node.depth, depth);
  EXPECT_EQ(node.depthToLeaf, unsigned(height));
  EXPECT_EQ(node.position.x, std::log10(double(deepest - height) / deepest * 9.0 + 1.0));
  ASSERT_EQ(node.edges.size(), tree.getNumChildren(id));

  std::vector<int> leaves;
  tree.getLeafNodes(id, leaves);
  EXPECT_EQ(node.boundingBox.minimum.x, node.position.x);
  EXPECT_EQ(node.boundingBox.maximum.x, 1.0);
  EXPECT_EQ(node.boundingBox.minimum.y, info.layoutInfoForNode(leaves.back()).position.y);
  EXPECT_EQ(node.boundingBox.maximum.y, info.layoutInfoForNode(leaves.front()).position.y);

  double sum = 0.0;
  for (unsigned int i = 0; i < tree.getNumChildren(id); ++i)
  {
    const int child = tree.getChild(id, i);
    const Point2D<double> position = info.layoutInfoForNode(child).position;
    sum += position.y;
    std::vector<Point2D<double>> points(i); // what is in it goes
    node.edges[i]->evaluate(points);
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
  for (unsigned int seed = 1; seed <= 30; ++seed)
  {
    SCOPED_TRACE(seed);
    const orvex::test::RandomTree random(seed, static_cast<int>(2 + seed * 7));
    Tree& tree = *random.tree;
    for (int id = 1; id < static_cast<int>(tree.getNumberOfNodes()); id += 2)
    {
      tree.setDistanceToParent(id, 100.0 * id); // takes no part
    }
    const auto info = layOut(random.tree);
    expectByDefinition(tree, *info, 0, 0);

    std::vector<int> leaves;
    tree.getLeafNodes(0, leaves);
    for (std::size_t i = 0; i < leaves.size(); ++i)
    {
      const double y = 1.0 - double(i) / double(leaves.size());
      expectPoint(info->layoutInfoForNode(leaves[i]).position, 1.0, y);
    }
  }
}

TEST(Layout, OfAVeryDeepTree)
{
  const unsigned int levels = 100'000;
  std::string text;
  for (unsigned int i = 0; i < levels; ++i)
  {
    text += "(a,";
  }
  text += "b" + std::string(levels, ')');
  boost::thread::attributes attributes;
  attributes.set_stack_size(std::size_t(128) << 20);
  boost::thread thread(attributes,
                       [&]
                       {
                         const auto info = layOut(parse(text));
                         const NodeLayoutInfo& root = info->layoutInfoForNode(0);
                         EXPECT_EQ(root.depthToLeaf, levels);
                         EXPECT_EQ(root.position.x, 0.0);
                         EXPECT_NEAR(root.boundingBox.minimum.y, 1.0 / (levels + 1), 1e-9);
                       });
  thread.join();
}

} // namespace
