#include "foundation/progress/Stage.h"
#include "support/HeardProgress.h"
#include "support/SceneFixture.h"
#include "support/Window.h"
#include "tree/Document.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QProgressBar>
#include <QTest>

#include <set>

using Kelmar::Progress::Listening;
using Stage = Kelmar::Progress::Stage;

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
          viewer.prepare(QSize(400, 300));
        });
  }

  Lumbra::Viewer viewer{nullptr};
};

TEST_F(OpeningTest, ReportsEveryStageInSmallSteps)
{
  const std::string name = file("random.nwk", randomNewick(3000, 1));
  HeardProgress heard;
  ASSERT_EQ(open(name), "");
  double before = 0.0;
  std::set<Stage> stages;
  for (const auto& [stage, share] : heard.reports)
  {
    stages.insert(stage);
    const double whole = shareOfWhole(stage, share);
    EXPECT_GE(whole, before);
    EXPECT_LE(whole, before + 0.1);
    before = whole;
  }
  EXPECT_EQ(before, 1.0);
  EXPECT_EQ(stages.size(), 4);
}

TEST_F(OpeningTest, ReportsOnlyWhatIsDone)
{
  const std::string good = randomNewick(3000, 2);
  for (const auto& [what, text, end] :
       {std::tuple("no tree", std::string(), std::pair(Stage::Picture, 1.0)),
        std::tuple("a failure behind half of it", good + ")" + good,
                   std::pair(Stage::Reading, 0.55)),
        std::tuple("a tree of one node", std::string("(a"), std::pair(Stage::Picture, 1.0))})
  {
    SCOPED_TRACE(what);
    {
      HeardProgress heard;
      open(file("tree.nwk", text));
      EXPECT_EQ(heard.reports.front(), std::pair(Stage::Reading, 0.0));
      EXPECT_EQ(heard.reports.back().first, end.first);
      EXPECT_NEAR(heard.reports.back().second, end.second, 0.01);
    }
    EXPECT_EQ(Listening::listener(), nullptr);
  }
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

TEST_F(OpeningTest, ShowsNothingIfItIsQuick)
{
  struct Shown : QObject
  {
    bool eventFilter(QObject* object, QEvent* event) override
    {
      count += event->type() == QEvent::Show && qobject_cast<QProgressBar*>(object);
      return false;
    }
    int count = 0;
  } shown;
  Window window;
  window.show();
  qApp->installEventFilter(&shown);
  QElapsedTimer timer;
  do // on a machine that is busy it may not be quick
  {
    shown.count = 0;
    timer.start();
    window._documentOpen(file("five.nwk", "((a,b),c);"));
  } while (timer.elapsed() >= 500);
  EXPECT_EQ(Listening::listener(), nullptr);
  EXPECT_EQ(shown.count, 0);
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
