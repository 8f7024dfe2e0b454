#include "generator/TreeGenerator.h"

#include "Outcome.h"
#include "tree/NewickReader.h"
#include "tree/Tree.h"

#include <boost/filesystem.hpp>
#include <boost/process.hpp>
#include <gmock/gmock.h>

namespace
{

namespace process = boost::process;
using orvex::tools::TreeGenerator;
using orvex::tools::TreeShape;

TEST(TreeGenerator, GivesTheShapeAndTheNumberOfLeaves)
{
  const auto logarithm = [](int leaves) { return int(std::ceil(std::log2(leaves))); };
  for (const int leaves : {1, 2, 3, 7, 8, 9, 64, 65, 5000})
  {
    const int binary = std::max(2, 2 * leaves - 1);
    const bool large = leaves == 5000;
    // Each with the bounds of its nodes and of its depth.
    for (const auto& [name, fewest, most, shallowest, deepest] :
         {std::tuple("random", binary, binary, large ? 13 : 1, large ? 59 : 64),
          std::tuple("balanced", binary, binary, std::max(1, logarithm(leaves)),
                     std::max(1, logarithm(leaves))),
          std::tuple("ladder", binary, binary, std::max(1, leaves - 1), std::max(1, leaves - 1)),
          std::tuple("star", leaves + 1, leaves + 1, 1, 1),
          std::tuple("polytomy", large ? 5100 : leaves + 1, large ? 6250 : binary, 1, 64)})
    {
      SCOPED_TRACE(std::string(name) + " " + std::to_string(leaves));
      TreeGenerator generator(static_cast<unsigned int>(leaves));
      const auto tree = orvex::NewickReader().parseContents(generator.newick(
          orvex::tools::shapeFromName(name), static_cast<unsigned int>(leaves), leaves % 2 == 0));
      EXPECT_EQ(int(tree->getNumberOfLeafNodes()), leaves);
      const int nodes = static_cast<int>(tree->getNumberOfNodes());
      EXPECT_TRUE(fewest <= nodes && nodes <= most) << nodes;
      const int depth = tree->findMaximumDepthToLeaf(0);
      EXPECT_TRUE(shallowest <= depth && depth <= deepest) << depth;
      for (int id = 1; id < nodes; ++id)
      {
        EXPECT_EQ(tree->hasDistanceToParent(id), leaves % 2 == 0);
        EXPECT_NE(tree->getName(id).empty(), tree->isLeaf(id));
      }
    }
  }
}

TEST(TreeGenerator, IsAProgramThatGivesTheSameOnEveryMachine)
{
  EXPECT_EQ(TreeGenerator(1).newick(TreeShape::Random, 4, true),
            "((Nordel_homus19:0.91268,Peru_zeni24:0.21477):0.89250,"
            "(Xaor_cifi01:0.04573,Zegal_bama78:0.18283):0.89516);");
  const std::string program = ORVEX_GENERATE;
  process::ipstream out;
  EXPECT_EQ(process::system(program + " polytomy 90 --seed 7 --lengths", process::std_out > out),
            0);
  std::string line;
  std::getline(out, line);
  EXPECT_EQ(line, TreeGenerator(7).newick(TreeShape::Polytomy, 90, true));
  for (const std::string wrong : {"", "star", "star 3 4", "star x", "star -3", "star 3x", "star 0",
                                  "star 99999999999", "bush 3", "star 3 --seed", "star 3 --sed 4"})
  {
    process::ipstream err;
    EXPECT_EQ(process::system(program + " " + wrong, process::std_err > err), 1) << wrong;
    EXPECT_THAT(std::string(std::istreambuf_iterator<char>(err), {}),
                testing::MatchesRegex("orvex-generate: [^\n]+\n"));
  }
}

TEST(Examples, AreTreesThatTheViewerReads)
{
  int trees = 0;
  for (const auto& file : boost::filesystem::directory_iterator(ORVEX_EXAMPLES))
  {
    if (file.path().extension() == ".nwk")
    {
      const auto tree = orvex::NewickReader()(file.path().string());
      ASSERT_NE(tree, nullptr) << file.path();
      EXPECT_EQ(tree->getRootNodeId(), 0) << "one tree in " << file.path();
      EXPECT_GT(tree->getNumberOfLeafNodes(), 5u);
      ++trees;
    }
  }
  EXPECT_GE(trees, 4);
}

} // namespace
