#include "FailingAllocator.h"
#include "gui/Window.h"

#include <gmock/gmock.h>

namespace
{

using WindowMemory = DisplayTest;

// Only large allocations fail: those of the tree, its layout and its scene, not those of Qt and of
// the OpenGL driver, which do not stand it.
TEST_F(WindowMemory, ThatRunsOutIsABoxAndTheWindowGoesOn)
{
  std::string newick = "(a";
  for (int i = 0; i < 20000; ++i)
  {
    newick += ",b" + std::to_string(i);
  }
  const std::string name = file("large.nwk", newick + ");");
  const std::string start = "Error Loading File " + name + "|Error 2991944830: ";
  orvex::test::Window window;
  window.show();
  const std::size_t base = Helper::instanceManager.numberOfObjects();
  std::string text;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout,
                   [&]
                   {
                     auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                     text = box && box->isVisible() ? orvex::test::confirm(*box) : text;
                   });
  timer.start(1);
  int n = 0;
  for (bool failed = true; failed && n < 500; ++n)
  {
    {
      const FailingAllocator allocator(n, false, 65536);
      window._documentOpen(name);
      failed = allocatorFailed();
    }
    // A stream keeps the exception to itself and only says that it can't go on.
    EXPECT_TRUE(failed
                    ? text == start + "std::bad_alloc\n" || text == start + "Could not read file.\n"
                    : text.empty())
        << n << text;
    text.clear();
    window._documentNew();
    orvex::test::deleteWhatIsDoomed();
    ASSERT_EQ(Helper::instanceManager.numberOfObjects(), base);
  }
  EXPECT_GT(n, 10);
  EXPECT_LT(n, 500) << "at last the tree is shown";
}

} // namespace
