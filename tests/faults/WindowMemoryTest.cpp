#include "DisplayTest.h"
#include "FailingAllocator.h"
#include "gui/MainWindow.h"
#include "gui/Viewer.h"
#include "tree/Tree.h"

#include <gmock/gmock.h>

#include <QMessageBox>
#include <QPushButton>

namespace
{

struct Window : Lumbra::MainWindow
{
  using MainWindow::_documentNew;
  using MainWindow::_documentOpen;
};

class WindowMemory : public DisplayTest
{
};

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
  Window window;
  window.show();
  const std::size_t base = Helper::instanceManager.numberOfObjects();
  long n = 0;
  for (bool failed = true; failed && n < 500; ++n)
  {
    SCOPED_TRACE(n);
    std::string text;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout,
                     [&text]
                     {
                       if (auto* box =
                               qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                           box && box->isVisible())
                       {
                         text = (box->windowTitle() + "|" + box->text()).toStdString();
                         box->button(QMessageBox::Ok)->click();
                       }
                     });
    timer.start(1);
    {
      const FailingAllocator allocator(n, FailingAllocator::Once, 65536);
      window._documentOpen(name);
      failed = FailingAllocator::failed();
    }
    // A stream keeps the exception to itself and only says that it can't go on.
    const std::string start = "Error Loading File " + name + "|Error 2991944830: ";
    if (failed)
    {
      EXPECT_THAT(text,
                  testing::AnyOf(start + "std::bad_alloc\n", start + "Could not read file.\n"));
    }
    else
    {
      EXPECT_EQ(text, "");
    }
    window._documentNew();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(Helper::instanceManager.numberOfObjects(), base);
  }
  EXPECT_GT(n, 10);
  EXPECT_LT(n, 500) << "at last the tree is shown";
}

} // namespace
