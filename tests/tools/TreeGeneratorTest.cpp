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
  for (const int leaves : {1, 2, 3, 7, 8, 9, 64, 65, 5000})
  {
    const int binary = std::max(2, 2 * leaves - 1);
    const int logarithm = std::max(1, int(std::ceil(std::log2(leaves))));
    // Each with the bounds of its nodes and of its depth.
    for (const auto& [name, fewest, most, shallowest, deepest] :
         {std::tuple("random", binary, binary, logarithm, logarithm * 5),
          std::tuple("balanced", binary, binary, logarithm, logarithm),
          std::tuple("ladder", binary, binary, std::max(1, leaves - 1), std::max(1, leaves - 1)),
          std::tuple("star", leaves + 1, leaves + 1, 1, 1),
          std::tuple("polytomy", leaves + 1, std::max(binary, leaves * 5 / 4), 1, 64)})
    {
      const auto tree = orvex::NewickReader().parseContents(
          TreeGenerator(5).newick(orvex::tools::shapeFromName(name), unsigned(leaves)));
      EXPECT_EQ(int(tree->getNumberOfLeafNodes()), leaves) << name;
      const int nodes = static_cast<int>(tree->getNumberOfNodes());
      EXPECT_TRUE(fewest <= nodes && nodes <= most) << name << " " << leaves << ": " << nodes;
      const int depth = tree->findMaximumDepthToLeaf(0);
      EXPECT_TRUE(shallowest <= depth && depth <= deepest)
          << name << " " << leaves << ": " << depth;
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
      EXPECT_EQ(orvex::NewickReader()(file.path().string())->getRootNodeId(), 0) << file.path();
      ++trees;
    }
  }
  EXPECT_GE(trees, 4);
}

} // namespace
