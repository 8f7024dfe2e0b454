#include "tree/model/Tree.h"

#include "support/Outcome.h"

using orvex::Tree;

TEST(Tree, CountsAndListsItsNodes)
{
  Tree tree;
  EXPECT_EQ(tree.getRootNodeId(), -1);
  for (int i = 0; i < 5; ++i)
  {
    EXPECT_EQ(tree.createNode(), i);
  }
  tree.setRelationship(2, 4); // nodes 0 and 1 stay alone
  tree.setRelationship(2, 3);
  tree.setRootNodeId(2);
  EXPECT_EQ(tree.getNumberOfLeafNodes(), 4u) << "also those that the root does not reach";
  std::vector<int> leaves{7};
  tree.getLeafNodes(2, leaves);
  EXPECT_THAT(leaves, testing::ElementsAre(7, 4, 3)) << "appended, in the order of the children";
  EXPECT_EQ(tree.getNumAllChildren(2), 3) << "with the node itself";
  EXPECT_EQ(tree.findMaximumDepthToLeaf(2), 1);
  EXPECT_THAT(errorOf([&] { tree.reserve(2147483648u); }),
              testing::HasSubstr("at most 2147483647 nodes"));
}
