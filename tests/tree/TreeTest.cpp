#include "tree/Tree.h"
#include "tree/RandomTree.h"

#include <gmock/gmock.h>

#include <cmath>

namespace
{

using orvex::Tree;

TEST(Tree, KeepsWhatAReaderFillsIn)
{
  Tree tree;
  EXPECT_EQ(tree.getRootNodeId(), -1);
  for (int i = 0; i < 5; ++i)
  {
    EXPECT_EQ(tree.createNode(), i);
  }
  tree.setRelationship(2, 4); // 0 and 1 to 3 stay apart
  tree.setRelationship(2, 3);
  tree.setRootNodeId(2);
  EXPECT_EQ(tree.getNumberOfLeafNodes(), 4u) << "also those that the root does not reach";
  std::vector<int> leaves{7};
  tree.getLeafNodes(2, leaves);
  EXPECT_THAT(leaves, testing::ElementsAre(7, 4, 3)) << "appended, in the order of the children";
  for (const double distance : {-1.5, 0.0, 1e-320, -0.0, std::nan("")})
  {
    tree.setDistanceToParent(3, distance);
    EXPECT_EQ(tree.hasDistanceToParent(3), !(distance == 0.0)) << distance;
    EXPECT_THAT(tree.getDistanceToParent(3), testing::NanSensitiveDoubleEq(distance));
  }
}

/// What there is below a node, counted child by child.
struct Below
{
  int nodes = 1, depth = 0;
  std::vector<int> leaves;

  Below(Tree& tree, int id)
  {
    for (unsigned int i = 0; i < tree.getNumChildren(id); ++i)
    {
      const Below child(tree, tree.getChild(id, i));
      nodes += child.nodes;
      depth = std::max(depth, child.depth + 1);
      leaves.insert(leaves.end(), child.leaves.begin(), child.leaves.end());
    }
    if (nodes == 1)
    {
      leaves.push_back(id);
    }
    EXPECT_EQ(tree.getNumAllChildren(id), nodes) << "node " << id;
    EXPECT_EQ(tree.findMaximumDepthToLeaf(id), depth) << "node " << id;
    std::vector<int> told;
    tree.getLeafNodes(id, told);
    EXPECT_EQ(told, leaves) << "node " << id;
  }
};

TEST(Tree, TellsWhatIsBelowANode)
{
  for (unsigned int seed = 1; seed <= 30; ++seed)
  {
    const auto tree = orvex::test::randomTree(seed, static_cast<int>(seed * 5 - 4));
    EXPECT_EQ(Below(*tree, 0).nodes, seed * 5 - 4);
  }
}

} // namespace
