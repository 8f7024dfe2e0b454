#include "render/LayoutCladogram.h"
#include "render/gl/SceneBuilder.h"
#include "tree/Document.h"
#include "tree/Tree.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <thread>

namespace
{

// Every tree that comes of a damaged file can be shown; -1 for a refusal.
int leavesShown(const std::string& name)
{
  const boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
  try
  {
    document->read(name);
  }
  catch (const std::exception&)
  {
    return -1;
  }
  const auto tree = document->getTree();
  if (!tree)
  {
    return 0;
  }
  const boost::intrusive_ptr<orvex::render::LayoutCladogram> layout(
      new orvex::render::LayoutCladogram);
  orvex::render::gl::SceneBuilder builder(tree);
  builder.buildScene(layout->layout(tree));
  return builder.root() ? static_cast<int>(tree->getNumberOfLeafNodes()) : -2;
}

TEST(TreeFile, TruncatedAtAnyByteIsATreeOrARefusal)
{
  const std::string whole = "((a:1.5e-3,b:-2)x:1,(c:4,(d,e)y)z:0.5);\n";
  const std::string name = testing::TempDir() + "/truncated.nwk";
  int refused = 0;
  for (std::size_t length = 0; length <= whole.size(); ++length)
  {
    SCOPED_TRACE(length);
    std::ofstream(name) << whole.substr(0, length);
    const int leaves = leavesShown(name);
    refused += leaves == -1;
    EXPECT_GE(leaves, length == 0 ? 0 : -1);
    EXPECT_LE(leaves, 5);
  }
  EXPECT_EQ(refused, 0) << "a length that is cut off is never read";
  EXPECT_EQ(leavesShown(name), 5);
}

TEST(TreeFile, ThatChangesWhileItIsReadIsATreeOrARefusal)
{
  const std::string name = testing::TempDir() + "/changing.nwk";
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
    const int leaves = leavesShown(name);
    EXPECT_NE(leaves, -2);
    trees += leaves > 0;
  }
  done = true;
  writer.join();
  EXPECT_GT(trees, 0) << "else no read met the file";
}

} // namespace
