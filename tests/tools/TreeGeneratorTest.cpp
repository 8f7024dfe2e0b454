#include "generator/TreeGenerator.h"

#include "tree/NewickReader.h"
#include "tree/Tree.h"

#include <boost/filesystem.hpp>
#include <gmock/gmock.h>

#include <cstdio>
#include <functional>

namespace
{

using orvex::tools::TreeGenerator;
using orvex::tools::TreeShape;

boost::shared_ptr<orvex::Tree> grow(TreeShape shape, unsigned int leaves, unsigned int seed)
{
  return orvex::NewickReader().parseContents(
      TreeGenerator(seed).newick(shape, leaves, seed % 2 == 0));
}

TEST(TreeGenerator, GivesTheShapeAndTheNumberOfLeaves)
{
  struct Case
  {
    const char* name;
    std::function<bool(int depth, unsigned int leaves, unsigned int nodes)> fits;
  };
  const auto binary = [](unsigned int leaves) { return std::max(2u, 2 * leaves - 1); };
  const Case cases[] = {
      {"random", [&](int depth, unsigned int leaves, unsigned int nodes)
       { return nodes == binary(leaves) && (leaves < 1000 || (depth > 12 && depth < 60)); }},
      {"balanced",
       [&](int depth, unsigned int leaves, unsigned int nodes)
       {
         return nodes == binary(leaves) && (leaves == 1 || 1u << (depth - 1) < leaves) &&
                1u << depth >= leaves;
       }},
      {"ladder", [&](int depth, unsigned int leaves, unsigned int nodes)
       { return nodes == binary(leaves) && unsigned(depth) == std::max(1u, leaves - 1); }},
      {"star", [](int depth, unsigned int leaves, unsigned int nodes)
       { return nodes == leaves + 1 && depth == 1; }},
      {"polytomy", [](int, unsigned int leaves, unsigned int nodes)
       { return leaves < 1000 || (nodes > leaves + leaves / 50 && nodes < leaves * 5 / 4); }},
  };
  for (const Case& c : cases)
  {
    const TreeShape shape = orvex::tools::shapeFromName(c.name);
    for (const unsigned int leaves : {1u, 2u, 3u, 7u, 8u, 9u, 64u, 65u, 5000u})
    {
      SCOPED_TRACE(std::string(c.name) + " " + std::to_string(leaves));
      const auto tree = grow(shape, leaves, leaves);
      ASSERT_EQ(tree->getNumberOfLeafNodes(), leaves);
      EXPECT_TRUE(c.fits(tree->findMaximumDepthToLeaf(0), leaves, tree->getNumberOfNodes()));
      for (int id = 1; id < int(tree->getNumberOfNodes()); ++id)
      {
        EXPECT_EQ(tree->hasDistanceToParent(id), leaves % 2 == 0);
        EXPECT_NE(tree->getName(id).empty(), tree->isLeaf(id));
        EXPECT_LE(tree->getNumChildren(id), 50u);
      }
    }
  }
  EXPECT_THROW(orvex::tools::shapeFromName("bush"), std::invalid_argument);
  EXPECT_THROW(TreeGenerator(1).newick(TreeShape::Star, 0), std::invalid_argument);
}

TEST(TreeGenerator, GivesTheSameTreeOnEveryMachine)
{
  EXPECT_EQ(TreeGenerator(1).newick(TreeShape::Random, 4, true),
            "((Nordel_homus19:0.91268,Peru_zeni24:0.21477):0.89250,"
            "(Xaor_cifi01:0.04573,Zegal_bama78:0.18283):0.89516);");
  EXPECT_NE(TreeGenerator(1).newick(TreeShape::Random, 40),
            TreeGenerator(2).newick(TreeShape::Random, 40));
}

/// \return what the program wrote to either stream, and its exit code at the end
std::string generate(const std::string& arguments)
{
  std::string output;
  FILE* pipe = popen((ORVEX_GENERATE " 2>&1 " + arguments).c_str(), "r");
  for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe))
  {
    output += static_cast<char>(c);
  }
  const int status = pclose(pipe);
  return output + std::to_string(WEXITSTATUS(status));
}

TEST(TreeGenerator, IsAProgram)
{
  EXPECT_EQ(generate("polytomy 90 --seed 7 --lengths"),
            TreeGenerator(7).newick(TreeShape::Polytomy, 90, true) + "\n0");
  for (const char* wrong :
       {"", "star", "star 3 4", "star x", "star -3", "star 3x", "star 0", "star 99999999999",
        "bush 3", "star 3 --seed", "star 3 --sed 4", "star 3 > /dev/full"})
  {
    EXPECT_THAT(generate(wrong), testing::MatchesRegex("orvex-generate: [^\n]+\n1")) << wrong;
  }
}

TEST(Examples, AreTreesThatTheViewerReads)
{
  int trees = 0;
  for (const auto& file : boost::filesystem::directory_iterator(ORVEX_EXAMPLES))
  {
    if (file.path().extension() == ".nwk")
    {
      SCOPED_TRACE(file.path());
      const auto tree = orvex::NewickReader()(file.path().string());
      ASSERT_NE(tree, nullptr);
      EXPECT_EQ(tree->getRootNodeId(), 0) << "one tree in the file";
      std::vector<int> leaves;
      tree->getLeafNodes(0, leaves);
      for (const int leaf : leaves)
      {
        EXPECT_THAT(tree->getName(leaf), testing::MatchesRegex("[A-Z][A-Za-z0-9_' -]+"));
      }
      ++trees;
    }
  }
  EXPECT_GE(trees, 4);
}

} // namespace
