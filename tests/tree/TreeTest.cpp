#include "tree/Tree.h"
#include "tree/RandomTree.h"

#include <gmock/gmock.h>

#include <algorithm>
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

TEST(Tree, AgreesWithWhatItsParentsTell)
{
  for (unsigned int seed = 1; seed <= 30; ++seed)
  {
    SCOPED_TRACE(seed);
    const int size = static_cast<int>(seed * 5 - 4);
    const orvex::test::RandomTree random(seed, size);
    // Later children have greater ids, so the leaves lie in the order of their paths.
    std::vector<std::vector<int>> paths;
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
      EXPECT_EQ(random.tree->getNumAllChildren(id), below) << "node " << id;
      EXPECT_EQ(random.tree->findMaximumDepthToLeaf(id), longest - 1) << "node " << id;
      if (below == 1)
      {
        paths.push_back(random.path(id));
      }
    }
    std::sort(paths.begin(), paths.end());
    std::vector<int> leaves;
    random.tree->getLeafNodes(0, leaves);
    ASSERT_EQ(leaves.size(), paths.size());
    for (std::size_t i = 0; i < leaves.size(); ++i)
    {
      EXPECT_EQ(leaves[i], paths[i].back());
    }
  }
}

} // namespace
