#include "FailingAllocator.h"
#include "foundation/InstanceManager.h"
#include "render/LayoutCladogram.h"
#include "render/gl/FreeType.h"
#include "render/gl/SceneBuilder.h"
#include "tree/NewickReader.h"
#include "tree/Tree.h"
#include "tree/TreeData.h"
#include "tree/TreeService.h"

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <new>
#include <sstream>

namespace
{

const char* const newick = "((alpha:1,a name longer than a small string:2)x,(c,(d,e)):3);";

void buildScene(const boost::shared_ptr<orvex::Tree>& tree)
{
  const boost::intrusive_ptr<orvex::render::LayoutCladogram> layout(
      new orvex::render::LayoutCladogram);
  orvex::render::gl::SceneBuilder(tree).buildScene(layout->layout(tree));
}

struct Step
{
  const char* what;
  std::function<void()> run;
};

class Memory : public testing::TestWithParam<FailingAllocator::Mode>
{
};

// Lets each allocation of a step fail in turn, until the step needs no more of them.
TEST_P(Memory, ThatRunsOutIsAnExceptionAndLeavesNothingBehind)
{
  const auto tree = orvex::NewickReader().parseContents(newick);
  const std::string body = R"({"root":{"name":"a name longer than a small string","children":[
      {"children":[]},{"children":[{"name":"b","children":[]}]}]}})";
  const std::string list = R"([{"id":1,"treeName":"a name longer than a small string"},{"id":2}])";
  std::ostringstream reports; // on objects that die while they are made, as they should
  std::streambuf* const out = std::cout.rdbuf(reports.rdbuf());
  for (const Step& step :
       {
           Step{"a file", [] { orvex::NewickReader().parseContents(newick); }},
           Step{"layout and scene", [&] { buildScene(tree); }},
           Step{"a scene with a font to be loaded",
                [&]
                {
                  orvex::render::gl::FreeType::destroy();
                  buildScene(tree);
                }},
           Step{"a tree of the service", [&] { orvex::readTree(body, "url"); }},
           Step{"a list of the service",
                [&]
                {
                  std::vector<boost::shared_ptr<orvex::TreeData>> rows;
                  orvex::readTreeList(list, "url", rows);
                }},
       })
  {
    SCOPED_TRACE(step.what);
    bool failed = true;
    long n = 0;
    for (; failed && n < 5000; ++n)
    {
      bool threw = false;
      {
        const FailingAllocator allocator(n, GetParam());
        try
        {
          step.run();
        }
        catch (const std::bad_alloc&)
        {
          threw = true;
        }
      }
      failed = FailingAllocator::failed();
      EXPECT_TRUE(failed || !threw);
      ASSERT_EQ(Helper::instanceManager.numberOfObjects(), 0u) << "allocation " << n;
    }
    EXPECT_FALSE(failed) << "at last there was memory enough";
    EXPECT_GT(n, 10);
  }
  std::cout.rdbuf(out);
  orvex::render::gl::FreeType::destroy();
}

INSTANTIATE_TEST_SUITE_P(Fails, Memory,
                         testing::Values(FailingAllocator::Once, FailingAllocator::FromThereOn));

} // namespace
