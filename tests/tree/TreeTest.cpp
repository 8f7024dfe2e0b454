#include "tree/Tree.h"

#include "support/Outcome.h"

#include <gmock/gmock.h>

#include <cmath>

namespace
{

using orvex::Tree;

TEST(Tree, KeepsWhatAReaderFillsIn)
{
  Tree tree;
  EXPECT_THAT(orvex::test::errorOf([&] { tree.reserve(2147483648u); }),
              testing::HasSubstr("at most 2147483647 nodes"));
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
  EXPECT_EQ(tree.getNumAllChildren(2), 3) << "with the node itself";
  EXPECT_EQ(tree.findMaximumDepthToLeaf(2), 1);
  for (const double distance : {-1.5, 0.0, 1e-320, -0.0, std::nan("")})
  {
    tree.setDistanceToParent(3, distance);
    EXPECT_EQ(tree.hasDistanceToParent(3), !(distance == 0.0)) << distance;
    EXPECT_THAT(tree.getDistanceToParent(3), testing::NanSensitiveDoubleEq(distance));
  }
}

} // namespace
