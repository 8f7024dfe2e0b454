#include "Outcome.h"
#include "render/gl/SceneFixture.h"
#include "tree/Document.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <thread>

namespace
{

/// The leaves of the scene that is built for a file, 0 without a tree, -1 for a refusal.
int leavesShown(const std::string& name)
{
  const boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
  if (!orvex::test::errorOf([&] { document->read(name); }).empty())
  {
    return -1;
  }
  const orvex::test::Scene scene(document->getTree());
  return scene.builder.root() ? int(document->getTree()->getNumberOfLeafNodes()) : 0;
}

TEST(TreeFile, TruncatedAtAnyByteIsATree)
{
  const std::string whole = "((a:1.5e-3,b:-2)x:1,(c:4,(d,e)y)z:0.5);\n";
  const std::string name = orvex::test::newFolder() + "/truncated.nwk";
  int leaves = 0;
  for (std::size_t length = 0; length <= whole.size(); ++length)
  {
    std::ofstream(name) << whole.substr(0, length);
    leaves = leavesShown(name);
    EXPECT_GE(leaves, length == 0 ? 0 : 1) << length; // a length that is cut off is never read
  }
  EXPECT_EQ(leaves, 5);
}

TEST(TreeFile, ThatChangesWhileItIsReadIsATreeOrARefusal)
{
  const std::string name = orvex::test::newFolder() + "/changing.nwk";
  std::string half = "(a";
  for (int i = 0; i < 20000; ++i)
  {
    half += ",b";
  }
  std::ofstream(name) << half << ");";
  std::atomic<bool> done(false);
  std::thread writer(
      [&]
      {
        while (!done)
        {
          std::ofstream(name, std::ios::trunc) << half << std::flush << half << ");";
        }
      });
  int trees = 0;
  // The writer may not get to run, or leave the file empty for many reads.
  for (int i = 0; trees < 20 && i < 1000000; ++i)
  {
    trees += leavesShown(name) > 0;
  }
  done = true;
  writer.join();
  EXPECT_GT(trees, 0) << "else no read met the file";
}

} // namespace
