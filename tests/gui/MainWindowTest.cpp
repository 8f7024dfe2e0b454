#include "render/camera/DisplaySettings.h"
#include "support/Window.h"
#include "tree/model/Tree.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

const char* const fiveNodes = "((a,b),c);";
const char* const treeActions[] = {"actionInfo", "actionExport_Image", "actionAlways_Show_Tree"};

class MainWindowTest : public DisplayTest
{
protected:
  std::string boxOf(const char* action)
  {
    return boxAfter([&] { window.action(action).trigger(); });
  }

  void choose(const char* action, const std::string& name)
  {
    answerDialog<QFileDialog>([&] { window.action(action).trigger(); },
                              [&](QFileDialog& dialog) { type(dialog, name); });
  }

  Window window;
};

TEST_F(MainWindowTest, StartsWithoutATree)
{
  EXPECT_EQ(window.size(), QSize(800, 600));
  EXPECT_EQ(window.windowIcon().pixmap(64, 64).size(), QSize(63, 64));
  EXPECT_FALSE(window.action("actionOpen").icon().pixmap(32).isNull());
  for (const char* name : treeActions)
  {
    EXPECT_FALSE(window.action(name).isEnabled()) << name;
  }
  EXPECT_THAT(boxOf("actionAbout"),
              testing::MatchesRegex("About\\|.*tree viewer prototype[^/]*\n.+"));
}

TEST_F(MainWindowTest, OpensATreeAndCountsItsNodes)
{
  choose("actionOpen", file("five \xc3\xa9.nwk", fiveNodes));
  EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the wait cursor is gone";
  EXPECT_EQ(boxOf("actionInfo"), "Tree info|Number of nodes: 5\nNumber of leaves: 3");
  const Lumbra::Viewer* const viewer = window.viewer();
  choose("actionOpen", "");
  EXPECT_EQ(window.viewer(), viewer) << "cancelling changes nothing";
}

TEST_F(MainWindowTest, ExportsAPictureOfTheViewersSize)
{
  window.show();
  window._documentOpen(file("five.nwk", fiveNodes));
  QTest::qWait(50); // the layout gives the viewer its place
  choose("actionExport_Image", path("picture.png"));
  EXPECT_EQ(QImage(QString::fromStdString(path("picture.png"))).size(), window.viewer()->size());
}

TEST_F(MainWindowTest, AlwaysShowTreeIsASwitchOfTheShownViewer)
{
  window._documentOpen(file("five.nwk", fiveNodes));
  QAction& always = window.action("actionAlways_Show_Tree");
  EXPECT_FALSE(always.isCheckable()) << "until it is used";
  for (const bool on : {true, false, true})
  {
    always.trigger();
    EXPECT_EQ(always.isChecked(), on);
    EXPECT_EQ(window.viewer()->settings()->alwaysUseHighLod(), on);
  }
  window._documentOpen(path("five.nwk"));
  EXPECT_FALSE(window.viewer()->settings()->alwaysUseHighLod()) << "a new viewer starts anew";
  EXPECT_TRUE(always.isChecked()) << "only the action changes its mark";
  window._documentNew();
  always.trigger();
  EXPECT_TRUE(always.isChecked()) << "without a viewer it changes nothing";
}

TEST_F(MainWindowTest, OpensTheOneNewickFileThatIsDroppedAndCopiesIt)
{
  const QUrl tree =
      QUrl::fromLocalFile(QString::fromStdString(file("five \xc3\xa9.TRE", fiveNodes)));
  const QUrl text = QUrl::fromLocalFile(QString::fromStdString(file("five.txt", fiveNodes)));
  for (const auto& [urls, actions, taken] :
       {std::tuple(QList<QUrl>{text}, Qt::CopyAction | Qt::MoveAction, false),
        {{tree, tree}, Qt::CopyAction | Qt::MoveAction, false},
        {{QUrl("http://a.example/five.nwk")}, Qt::CopyAction | Qt::MoveAction, false},
        {{tree}, Qt::MoveAction | Qt::LinkAction, false},
        {{tree}, Qt::CopyAction | Qt::MoveAction, true}})
  {
    SCOPED_TRACE(urls.front().toString().toStdString());
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({}, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
    QDropEvent drop({}, actions, &data, Qt::LeftButton, Qt::ShiftModifier);
    for (QDropEvent* event : {static_cast<QDropEvent*>(&enter), &drop})
    {
      event->setAccepted(false);
      QCoreApplication::sendEvent(&window, event);
      EXPECT_EQ(event->isAccepted(), taken);
      EXPECT_TRUE(!taken || event->dropAction() == Qt::CopyAction);
    }
    QTest::qWait(20);
    EXPECT_EQ(window.viewer() != nullptr, taken);
  }
}

TEST_F(MainWindowTest, ANewTreeReplacesTheShownOne)
{
  window._documentOpen(file("five.nwk", fiveNodes));
  const std::size_t objects = Helper::instanceManager.numberOfObjects();
  window._documentOpen(path("five.nwk"));
  deleteWhatIsDoomed();
  EXPECT_EQ(window.findChildren<QGLWidget*>().size(), 1);
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), objects);
  window._documentOpen(path("five.nwk")); // what it replaces is deleted after the window
}

TEST_F(MainWindowTest, OpensAtTheSizeInWhichTheLastOneQuit)
{
  {
    Window last;
    last.show();
    last.resize(640, 500);
    last.action("actionQuit").trigger();
    EXPECT_FALSE(last.isVisible());
  }
  EXPECT_EQ(Window().size(), QSize(640, 500));
}

TEST_F(MainWindowTest, ShowsAnEmptyViewForAFileWithoutATree)
{
  for (const auto& [name, text] : {std::pair("empty.nwk", ""), std::pair("tree.txt", fiveNodes)})
  {
    window._documentOpen(file(name, text));
    EXPECT_FALSE(window.viewer()->tree()) << name;
    EXPECT_EQ(boxOf("actionInfo"), "Tree info|Number of nodes: 0\nNumber of leaves: 0");
  }
}

TEST_F(MainWindowTest, SaysWhyAFileCannotBeReadAndThenShowsNoTree)
{
  window._documentOpen(file("five.nwk", fiveNodes));
  const std::string before = log(); // may have a line on the samples of windows
  const std::string bad = file("<b>bad.nwk", "a,b);");
  EXPECT_EQ(boxAfter([&] { choose("actionOpen", bad); }),
            "Error Loading File " + bad +
                "|Error 2991944830: Unexpected comma encountered: line 1, column 2.\n");
  EXPECT_EQ(window.centralWidget(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  for (const char* name : treeActions)
  {
    EXPECT_TRUE(window.action(name).isEnabled()) << name;
    window.action(name).trigger(); // a box would wait for ever
  }
  EXPECT_EQ(log(), before);
}
