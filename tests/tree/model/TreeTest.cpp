#include "tree/model/Tree.h"

#include "support/Outcome.h"

#include <cmath>

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

TEST(Tree, KeepsTheOrderOfAnyNumberOfChildren)
{
  Tree tree;
  for (int i = 0; i < 30; ++i)
  {
    tree.createNode();
  }
  // Nodes 0 to 4 get as many children as their number says, in turn and in falling order.
  std::vector<std::vector<int>> expected(5);
  for (int child = 29; child >= 10; --child)
  {
    const int parent = child % 5;
    if (tree.getNumChildren(parent) < static_cast<unsigned int>(parent))
    {
      tree.setRelationship(parent, child);
      expected[static_cast<std::size_t>(parent)].push_back(child);
    }
  }
  for (int parent = 0; parent < 5; ++parent)
  {
    const auto [first, end] = tree.getChildren(parent);
    EXPECT_EQ(std::vector<int>(first, end), expected[static_cast<std::size_t>(parent)]);
    EXPECT_EQ(tree.getNumChildren(parent), static_cast<unsigned int>(parent));
    EXPECT_EQ(tree.isLeaf(parent), parent == 0);
  }
  EXPECT_EQ(tree.getChild(4, 3), expected[4][3]);
}

TEST(Tree, KeepsTheLastNameThatANodeGot)
{
  Tree tree;
  tree.createNode();
  const std::string& none = tree.getName(tree.createNode());
  for (const char* name : {"", "Pan", "", "Gorilla gorilla gorilla"})
  {
    tree.setName(0, name);
    EXPECT_EQ(tree.getName(0), name);
    EXPECT_EQ(none, "");
  }
}

TEST(Tree, HasADistanceWhereItIsNotZero)
{
  Tree tree;
  tree.createNode();
  for (const double distance : {-1.5, 0.0, 1e-320, -0.0, std::nan("")})
  {
    tree.setDistanceToParent(0, distance);
    EXPECT_EQ(tree.hasDistanceToParent(0), !(distance == 0.0)) << distance;
    EXPECT_THAT(tree.getDistanceToParent(0), testing::NanSensitiveDoubleEq(distance));
  }
}
