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

TEST(TreeGenerator, IsAProgramThatGivesTheSameOnEveryMachine)
{
  EXPECT_EQ(TreeGenerator(1).newick(TreeShape::Random, 4, true),
            "((Nordel_homus19:0.91268,Peru_zeni24:0.21477):0.89250,"
            "(Xaor_cifi01:0.04573,Zegal_bama78:0.18283):0.89516);");
  const auto ladder =
      orvex::NewickReader().parseContents(TreeGenerator(1).newick(TreeShape::Ladder, 1000));
  EXPECT_EQ(ladder->getNumberOfLeafNodes(), 1000u);
  EXPECT_EQ(ladder->findMaximumDepthToLeaf(0), 999);
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
