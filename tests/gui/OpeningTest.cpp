#include "foundation/progress/Stopped.h"
#include "support/HeardProgress.h"
#include "support/SceneFixture.h"
#include "support/Window.h"
#include "tree/Document.h"
#include "tree/model/OpeningStages.h"

#include <QKeyEvent>
#include <QTest>

#include <map>

using Kelmar::Progress::Listening;

class OpeningTest : public DisplayTest
{
protected:
  /// Opens a file as the window does. \return the text of the failure
  std::string open(const std::string& name)
  {
    return errorOf(
        [&]
        {
          const boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
          document->read(name);
          viewer.tree(document->getTree());
          viewer.updateScene();
          viewer.resize(400, 300);
          viewer.prepare();
        });
  }

  Lumbra::Viewer viewer{nullptr};
};

TEST_F(OpeningTest, ReportsEveryStageInSmallSteps)
{
  const std::string name = file("random.nwk", randomNewick(3000, 1));
  HeardProgress heard;
  ASSERT_EQ(open(name), "");
  EXPECT_EQ(heard.whole, 1.0);
  std::map<std::string, int> reports;
  for (const auto& [stage, share] : heard.reports)
  {
    ++reports[stage];
  }
  EXPECT_EQ(reports.size(), 4);
  for (const auto& [stage, number] : reports)
  {
    // The picture's rows are few, so it is made at once.
    EXPECT_GT(number, stage == orvex::OpeningStages::picture.text ? 1 : 300) << stage;
  }
}

TEST_F(OpeningTest, ReportsOnlyWhatIsDone)
{
  const std::string good = randomNewick(3000, 2);
  for (const auto& [what, text, end] :
       {std::tuple("no tree", std::string(), 1.0),
        std::tuple("a failure behind half of the file", good + ")" + good,
                   0.55 * orvex::OpeningStages::reading.end),
        std::tuple("a tree of one node", std::string("(a"), 1.0)})
  {
    SCOPED_TRACE(what);
    {
      HeardProgress heard;
      open(file("tree.nwk", text));
      EXPECT_EQ(heard.reports.front(), std::pair(std::string("Reading the file"), 0.0));
      EXPECT_NEAR(heard.whole, end, 0.002);
    }
    EXPECT_EQ(Listening::listener(), nullptr);
  }
}

// The objects that were made until then go without a line in the log.
TEST_F(OpeningTest, CanBeStoppedAtEachReport)
{
  struct StopAt : Kelmar::Progress::Listener
  {
    explicit StopAt(int report) : left(report) {}
    void progress(const Kelmar::Progress::Stage&, double) override
    {
      if (--left < 0)
      {
        throw Kelmar::Progress::Stopped();
      }
    }
    int left;
    Listening listening{*this};
  };
  const std::string name = file("tree.nwk", randomNewick(20, 3));
  int stopped = 0;
  for (std::string error = "none yet"; !error.empty(); ++stopped)
  {
    const StopAt stop(stopped);
    EXPECT_EQ(outputOf([&] { error = open(name); }), "") << "report " << stopped;
    EXPECT_THAT(error, testing::AnyOf("", Kelmar::Progress::Stopped().what()));
  }
  EXPECT_GT(stopped, 100);
}

TEST_F(OpeningTest, ThePictureForTheSizeThatIsShownIsMadeOnce)
{
  open(file("five.nwk", "((a,b),c);"));
  for (const auto& [size, reports] : {std::pair(QSize(400, 300), false), {QSize(410, 300), true}})
  {
    HeardProgress heard;
    viewer.resize(size);
    viewer.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&viewer));
    viewer.updateGL();
    EXPECT_EQ(!heard.reports.empty(), reports) << size.width();
  }
}

TEST_F(OpeningTest, InputThatCameMeanwhileIsDroppedButNoOther)
{
  struct Typed : Window
  {
    void keyPressEvent(QKeyEvent*) override { ++keys; }
    int keys = 0;
  } window;
  const auto pressKey = [&window]
  { QCoreApplication::postEvent(&window, new QKeyEvent(QEvent::KeyPress, Qt::Key_Space, {})); };
  window.show();
  pressKey();
  window._documentOpen(file("tree.nwk", "(a,b);"));
  QTest::qWait(20);
  EXPECT_EQ(window.keys, 0);
  pressKey();
  QTest::qWait(20);
  EXPECT_EQ(window.keys, 1);
}

TEST_F(OpeningTest, WhatWasSeenStaysBelowTheViewerForAMoment)
{
  Window window;
  window.show();
  window._documentOpen(file("tree.nwk", "(a,b);"));
  const QPoint inside = window.viewer()->geometry().center();
  const QPointer<QWidget> below = window.childAt(inside);
  EXPECT_NE(below, window.viewer());
  EXPECT_TRUE(below && below->findChildren<QWidget*>().empty()) << "a bar that was not seen";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !below; }, 60'000));
  EXPECT_EQ(window.childAt(inside), window.viewer());
}

TEST_F(OpeningTest, ACloseIsNotLostBehindTheBoxOfABadFile)
{
  Window window;
  window.show();
  QCoreApplication::postEvent(&window, new QCloseEvent);
  QTimer::singleShot(1000, [] { QApplication::activeModalWidget()->close(); }); // if there is a box
  window._documentOpen(file("bad.nwk", "a,b);"));
  EXPECT_FALSE(window.isVisible());
}
