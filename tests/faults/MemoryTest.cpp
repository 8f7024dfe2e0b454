#include "foundation/system/AllocatorMemory.h"
#include "foundation/system/LargePages.h"
#include "foundation/system/NumberFile.h"
#include "render/gl/font/FreeType.h"
#include "support/Outcome.h"
#include "support/SceneFixture.h"
#include "support/Window.h"
#include "tree/service/JsonTree.h"
#include "tree/service/JsonTreeList.h"
#include "tree/service/TreeData.h"

#include <dlfcn.h>

#include <cstdlib>

static thread_local struct
{
  bool armed, failed, everAfter;
  long left;
  std::size_t leastSize;
  bool isOurs; // asked for by the program's own code
} plan{};

/// Does something while the allocator refuses this thread's n-th operator new, counted from 0: that
/// one only, or also all later ones.
/// \param leastSize  above 0: only calls by the program's own code for that many bytes count, not
///                   those of shared libraries
/// \param error  becomes the text of the exception that came out; too short to need memory
/// \return whether a call was refused
template <class Action>
static bool failsAtNew(long n, bool everAfter, std::size_t leastSize, std::string& error,
                       Action action)
{
  plan = {true, false, everAfter, n, leastSize, false};
  error = errorOf(action);
  plan.armed = false;
  return plan.failed;
}

static bool refuses(std::size_t size)
{
  if (!plan.armed || size < plan.leastSize || (plan.leastSize > 0 && !plan.isOurs) ||
      plan.left-- > 0)
  {
    return false;
  }
  plan.armed = plan.everAfter;
  return plan.failed = true;
}

struct OursScope
{
  OursScope() { plan.isOurs = true; }
  ~OursScope() { plan.isOurs = false; }
};

// The linker puts these before malloc, operator new and the one of std::string, where the program's
// own code calls them. So it is the delivered operator new that meets a lack of memory.
extern "C"
{
#define STRING_NEW(prefix)                                                                         \
  prefix##_ZNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEE9_M_createERmm
  void* __real_malloc(std::size_t size);
  void* __real__Znwm(std::size_t size);
  char* STRING_NEW(__real_)(std::string* string, std::size_t& capacity, std::size_t before);
  void* __wrap_malloc(std::size_t size);
  void* __wrap__Znwm(std::size_t size);
  char* STRING_NEW(__wrap_)(std::string* string, std::size_t& capacity, std::size_t before);

  void* __wrap_malloc(std::size_t size)
  {
    return refuses(size) ? nullptr : __real_malloc(size);
  }

  void* __wrap__Znwm(std::size_t size)
  {
    const OursScope scope;
    return __real__Znwm(size);
  }

  char* STRING_NEW(__wrap_)(std::string* string, std::size_t& capacity, std::size_t before)
  {
    const OursScope scope;
    return STRING_NEW(__real_)(string, capacity, before);
  }
}

class MemoryTest : public DisplayTest
{
};

// Lets each allocation of a step fail in turn, until the step needs no more of them.
TEST_F(MemoryTest, RunningOutThrowsAndLeavesNothingBehind)
{
  const std::string newick =
      "((alpha:1,a name longer than a small string:2)x,(c,(d,e,f,the name of a fourth leaf)):3);";
  const auto tree = orvex::NewickReader().parseContents(newick);
  const std::string body = R"({"root":{"name":"a name longer than a small string","children":[
      {"children":[]},{"children":[{"name":"b","children":[]}]}]}})";
  const std::string list = R"([{"id":1,"treeName":"a name longer than a small string"},{"id":2}])";
  std::vector<boost::shared_ptr<orvex::TreeData>> rows;
  const std::function<void()> steps[] = {
      [&] { orvex::NewickReader().parseContents(newick); }, [&] { Scene{tree}; },
      [&] { orvex::render::gl::FreeType::destroy(), Scene{tree}; }, // loads the font again
      [&] { orvex::readTree(body, "url"); }, [&] { orvex::readTreeList(list, "url", rows); }};
  for (int i = 0; i < 10; ++i)
  {
    SCOPED_TRACE(i);
    bool failed = true;
    int n = 0;
    for (; failed && n < 5000; ++n)
    {
      rows = {};
      std::string error;
      failed = failsAtNew(n, i % 2 == 0, 0, error, steps[i / 2]);
      EXPECT_TRUE(error.empty() || (failed && error == "std::bad_alloc"));
      ASSERT_EQ(Helper::instanceManager.numberOfObjects(), 0u) << "allocation " << n;
    }
    EXPECT_FALSE(failed) << "the last round had memory enough";
    EXPECT_GT(n, 10);
  }
  orvex::render::gl::FreeType::destroy();
}

TEST_F(MemoryTest, RunningOutForTheErrorsBoxLeavesTheLineInTheLog)
{
  QAction action(nullptr);
  QObject::connect(&action, &QAction::triggered,
                   [] { throw std::runtime_error("a text that needs memory to be copied"); });
  std::string error;
  EXPECT_TRUE(failsAtNew(0, false, 1, error, [&] { triggerFromLoop(action); }));
  EXPECT_EQ(error, "") << "nothing leaves the event loop";
  EXPECT_EQ(log(), "Error 8033290760: a text that needs memory to be copied\n");
}

// Only large allocations fail: those of the tree, its layout and its scene, not those of Qt and of
// the OpenGL driver, which would end the program.
TEST_F(MemoryTest, RunningOutShowsABoxAndTheWindowGoesOn)
{
  const std::string name = file("large.nwk", "(a" + std::string(20000, ',') + ");");
  const std::string start = "Error Loading File " + name + "|Error 2991944830: ";
  Window window;
  window.show();
  const std::size_t base = Helper::instanceManager.numberOfObjects();
  std::string error; // one that no box shows
  int n = 0;
  for (bool failed = true; failed && n < 500; ++n)
  {
    const std::string box = boxAfter(
        [&]
        {
          failed = failsAtNew(n, false, 65536, error, [&] { window._documentOpen(name); });
          failed ? void() : window.action("actionInfo").trigger();
        });
    EXPECT_TRUE(failed ? box == start + "std::bad_alloc\n" ||
                             box == start + "There is not enough memory for the text of the file.\n"
                       : box.substr(0, 9) == "Tree info")
        << n << box << error;
    window._documentNew();
    deleteWhatIsDoomed();
    ASSERT_EQ(Helper::instanceManager.numberOfObjects(), base);
  }
  EXPECT_GT(n, 10);
  EXPECT_LT(n, 500) << "in the last round the tree is shown";
}

// As the driver and Qt take some while a tree is opened, and keep it.
TEST_F(MemoryTest, GoesBackToTheSystemAlthoughSomeBlocksAmongItStay)
{
  const auto kibibytes = []
  { return *Kelmar::System::numberAfter("/proc/self/status", "RssAnon:"); };
  Kelmar::System::LargePages::prefer();
  std::vector<std::vector<char>> tree;
  std::vector<std::vector<char>> others;
  auto pages = std::make_unique<Kelmar::System::LargePages>();
  for (int i = 0; i < 200'000; ++i)
  {
    (i % 5000 == 0 ? others : tree).emplace_back(1000, 'x');
  }
  pages = nullptr;
  const std::size_t before = kibibytes();
  tree = {};
  Kelmar::System::giveBackMemory();
  // The sanitizers' allocator keeps what is freed.
  const std::size_t goes = dlsym(RTLD_DEFAULT, "mi_collect") ? 180'000 : 0;
  EXPECT_LT(kibibytes() + goes, before + 10'000);
}
