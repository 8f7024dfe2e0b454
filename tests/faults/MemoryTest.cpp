#include "FailingAllocator.h"
#include "Outcome.h"
#include "foundation/InstanceManager.h"
#include "render/gl/FreeType.h"
#include "render/gl/SceneFixture.h"
#include "tree/TreeData.h"
#include "tree/TreeService.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

// Lets each allocation of a step fail in turn, until the step needs no more of them.
TEST(Memory, ThatRunsOutIsAnExceptionAndLeavesNothingBehind)
{
  using orvex::test::Scene;
  const std::string newick = "((alpha:1,a name longer than a small string:2)x,(c,(d,e)):3);";
  const auto tree = orvex::NewickReader().parseContents(newick);
  const std::string body = R"({"root":{"name":"a name longer than a small string","children":[
      {"children":[]},{"children":[{"name":"b","children":[]}]}]}})";
  const std::string list = R"([{"id":1,"treeName":"a name longer than a small string"},{"id":2}])";
  const std::function<void()> steps[] = {
      [&] { orvex::NewickReader().parseContents(newick); }, [&] { Scene{tree}; },
      [&]
      {
        orvex::render::gl::FreeType::destroy(); // so that the font is loaded again
        Scene{tree};
      },
      [&] { orvex::readTree(body, "url"); },
      [&]
      {
        std::vector<boost::shared_ptr<orvex::TreeData>> rows;
        orvex::readTreeList(list, "url", rows);
      }};
  for (int i = 0; i < 10; ++i)
  {
    SCOPED_TRACE(i);
    bool failed = true;
    int n = 0;
    for (; failed && n < 5000; ++n)
    {
      std::string error;
      orvex::test::printed( // on objects that die while they are made, as they should
          [&]
          {
            const FailingAllocator allocator(n, i % 2 == 0);
            error = orvex::test::errorOf(steps[i / 2]); // too short a text to need memory
          });
      failed = allocatorFailed();
      EXPECT_TRUE(error.empty() || (failed && error == "std::bad_alloc"));
      ASSERT_EQ(Helper::instanceManager.numberOfObjects(), 0u) << "allocation " << n;
    }
    EXPECT_FALSE(failed) << "at last there was memory enough";
    EXPECT_GT(n, 10);
  }
  orvex::render::gl::FreeType::destroy();
}

} // namespace
