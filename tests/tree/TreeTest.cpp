#include "tree/Tree.h"
#include "tree/RandomTree.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

using orvex::Tree;
using testing::ElementsAre;

std::vector<int> leavesUnder(Tree& tree, int id)
{
  std::vector<int> leaves;
  tree.getLeafNodes(id, leaves);
  return leaves;
}

TEST(Tree, IsEmptyUntilAReaderFillsIt)
{
  Tree tree;
  EXPECT_EQ(tree.getNumberOfNodes(), 0u);
  EXPECT_EQ(tree.getNumberOfLeafNodes(), 0u);
  EXPECT_EQ(tree.getRootNodeId(), -1);

  const int only = tree.createNode();
  EXPECT_EQ(only, 0);
  EXPECT_TRUE(tree.isLeaf(only));
  EXPECT_THAT(leavesUnder(tree, only), ElementsAre(only));
  EXPECT_EQ(tree.getNumAllChildren(only), 1);
  EXPECT_EQ(tree.findMaximumDepthToLeaf(only), 0);
}

TEST(Tree, TakesZeroForNoDistance)
{
  const std::pair<double, bool> cases[] = {
      {-1.5, true}, {0.0, false}, {1e-320, true}, {-0.0, false}, {std::nan(""), true}};
  Tree tree;
  const int id = tree.createNode();
  EXPECT_FALSE(tree.hasDistanceToParent(id));
  for (const auto& [distance, has] : cases)
  {
    tree.setDistanceToParent(id, distance);
    EXPECT_EQ(tree.hasDistanceToParent(id), has) << distance;
    EXPECT_THAT(tree.getDistanceToParent(id), testing::NanSensitiveDoubleEq(distance));
  }
}

TEST(Tree, CountsNodesThatTheRootDoesNotReach)
{
  Tree tree;
  for (int i = 0; i < 5; ++i)
  {
    tree.createNode();
  }
  tree.setRelationship(2, 4); // 0 and 1 to 3 stay apart
  tree.setRelationship(2, 3);
  tree.setRootNodeId(2);
  EXPECT_EQ(tree.getNumberOfNodes(), 5u);
  EXPECT_EQ(tree.getNumberOfLeafNodes(), 4u);
  std::vector<int> leaves{7};
  tree.getLeafNodes(2, leaves);
  EXPECT_THAT(leaves, ElementsAre(7, 4, 3)) << "appended, in the order of the children";
  EXPECT_EQ(tree.getChild(2, 1), 3);
}

TEST(Tree, AgreesWithWhatItsParentsTell)
{
  for (unsigned int seed = 1; seed <= 30; ++seed)
  {
    SCOPED_TRACE(seed);
    const int size = static_cast<int>(2 + seed * 5);
    const orvex::test::RandomTree random(seed, size);
    Tree& tree = *random.tree;

    std::vector<std::vector<int>> leafPaths;
    for (int id = 0; id < size; ++id)
    {
      int below = 0;
      std::size_t longest = 0;
      for (int node = 0; node < size; ++node)
      {
        const std::vector<int> path = random.path(node);
        const auto found = std::find(path.begin(), path.end(), id);
        below += found != path.end() ? 1 : 0;
        longest = std::max(longest, std::size_t(path.end() - found));
      }
      EXPECT_EQ(tree.getNumAllChildren(id), below) << "node " << id;
      EXPECT_EQ(tree.findMaximumDepthToLeaf(id), longest - 1) << "node " << id;
      if (below == 1)
      {
        leafPaths.push_back(random.path(id));
      }
    }
    // Later children have greater ids, so the leaves from left to right are in order of their
    // paths.
    std::sort(leafPaths.begin(), leafPaths.end());
    std::vector<int> leaves;
    for (const std::vector<int>& path : leafPaths)
    {
      leaves.push_back(path.back());
    }
    EXPECT_EQ(leavesUnder(tree, 0), leaves);
    EXPECT_EQ(tree.getNumberOfLeafNodes(), leaves.size());
  }
}

} // namespace
