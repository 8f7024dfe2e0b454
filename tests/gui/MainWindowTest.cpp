#include "gui/MainWindow.h"

#include "DisplayTest.h"
#include "LoopbackServer.h"
#include "gui/Viewer.h"
#include "render/CameraCladogram.h"
#include "render/DisplaySettings.h"
#include "tree/Tree.h"

#include <gmock/gmock.h>

#include <QFileDialog>
#include <QIcon>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace
{

const char* const fiveNodes = "((a,b),c);";

struct Window : Lumbra::MainWindow
{
  using MainWindow::_documentNew;
  using MainWindow::_documentOpen;

  Lumbra::Viewer* viewer() const { return dynamic_cast<Lumbra::Viewer*>(centralWidget()); }
  QAction& action(const char* name) const { return *findChild<QAction*>(name); }
};

/// The menus as text: disabled entries in brackets.
std::string menus(const Window& window)
{
  QStringList lines;
  for (const QAction* menu : window.menuBar()->actions())
  {
    QStringList entries;
    for (const QAction* entry : menu->menu()->actions())
    {
      const QString text = entry->isSeparator() ? "--" : entry->text();
      entries.append(entry->isSeparator() || entry->isEnabled() ? text : "(" + text + ")");
    }
    lines.append(menu->text() + ": " + entries.join(", "));
  }
  return lines.join("; ").toStdString();
}

/// Reads a message box as "title|text" and confirms it.
class BoxText
{
public:
  operator std::string() const { return _text; }

private:
  std::string _text;
  Answer<QMessageBox> _answer{[this](QMessageBox& box)
                              {
                                _text = (box.windowTitle() + "|" + box.text()).toStdString();
                                EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
                                box.button(QMessageBox::Ok)->click();
                              }};
};

std::string boxAfter(const std::function<void()>& action)
{
  const BoxText box;
  action();
  return box;
}

std::function<void(QFileDialog&)> typing(const std::string& name)
{
  return [name](QFileDialog& dialog)
  {
    dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(name));
    QMetaObject::invokeMethod(&dialog, name.empty() ? "reject" : "accept");
  };
}

class MainWindow : public DisplayTest
{
protected:
  void trigger(Window& window, const char* action, const std::string& name)
  {
    const Answer<QFileDialog> answer(typing(name));
    window.action(action).trigger();
  }
};

TEST_F(MainWindow, StartsWithoutATreeAndEnablesActionsWithTheFirst)
{
  Window window;
  EXPECT_EQ(window.size(), QSize(800, 600));
  EXPECT_EQ(window.windowTitle(), "Orvex Tree Viewer");
  EXPECT_EQ(window.windowIcon().pixmap(64, 64).size(), QSize(63, 64));
  EXPECT_FALSE(window.action("actionOpen").icon().pixmap(32).isNull());
  EXPECT_EQ(menus(window), "File: Open, Open from tesmar, --, (Export Image), --, Quit; "
                           "Tree: (Info), (Always Show Tree); Help: About");
  window._documentOpen(file("five.nwk", fiveNodes));
  EXPECT_EQ(menus(window), "File: Open, Open from tesmar, --, Export Image, --, Quit; "
                           "Tree: Info, Always Show Tree; Help: About");
}

TEST_F(MainWindow, OpensShowsAndExportsATree)
{
  Window window;
  window.show();
  trigger(window, "actionOpen", file("five \xc3\xa9.nwk", fiveNodes));
  ASSERT_TRUE(window.viewer());
  EXPECT_EQ(window.viewer()->tree()->getNumberOfLeafNodes(), 3u);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the wait cursor is gone";
  EXPECT_EQ(boxAfter([&] { window.action("actionInfo").trigger(); }),
            "Tree info|Number of nodes: 5\nNumber of leaves: 3");
  EXPECT_THAT(boxAfter([&] { window.action("actionAbout").trigger(); }),
              testing::MatchesRegex("About\\|.*tree viewer prototype.*\n.+"));

  QTest::qWait(50); // the layout gives the viewer its place
  trigger(window, "actionExport_Image", path("picture.png"));
  EXPECT_EQ(QImage(QString::fromStdString(path("picture.png"))).size(), window.viewer()->size());
}

TEST_F(MainWindow, AlwaysShowTreeIsCheckableFromItsFirstUse)
{
  Window window;
  QAction& action = window.action("actionAlways_Show_Tree");
  window._documentOpen(file("five.nwk", fiveNodes));
  EXPECT_FALSE(action.isCheckable());
  for (const bool on : {true, false, true})
  {
    action.trigger();
    EXPECT_EQ(action.isChecked(), on);
    EXPECT_EQ(window.viewer()->settings()->alwaysUseHighLod(), on);
  }
  window._documentOpen(path("five.nwk"));
  EXPECT_FALSE(window.viewer()->settings()->alwaysUseHighLod()) << "a new viewer starts anew";
  EXPECT_TRUE(action.isChecked()) << "the mark is written by the action only";
}

TEST_F(MainWindow, ShowsWhyAFileCantBeReadAndKeepsNoTree)
{
  Window window;
  trigger(window, "actionOpen", file("five.nwk", fiveNodes));
  const std::string bad = file("<b>bad.nwk", "a,b);");
  const std::string box = boxAfter([&] { trigger(window, "actionOpen", bad); });
  EXPECT_THAT(box, testing::StartsWith("Error Loading File " + bad + "|Error 2991944830: "));
  EXPECT_THAT(box, testing::EndsWith("\n"));
  EXPECT_EQ(window.centralWidget(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  for (const char* name : {"actionInfo", "actionExport_Image", "actionAlways_Show_Tree"})
  {
    EXPECT_TRUE(window.action(name).isEnabled());
    window.action(name).trigger(); // a box would wait for ever
  }
  EXPECT_EQ(log(), "");
}

TEST_F(MainWindow, ShowsAnEmptyViewForAFileWithoutATree)
{
  Window window;
  for (const auto& [name, text] :
       {std::pair<const char*, const char*>{"empty.nwk", ""}, {"tree.txt", fiveNodes}})
  {
    window._documentOpen(file(name, text));
    ASSERT_TRUE(window.viewer());
    EXPECT_FALSE(window.viewer()->tree());
    EXPECT_EQ(boxAfter([&] { window.action("actionInfo").trigger(); }),
              "Tree info|Number of nodes: 0\nNumber of leaves: 0");
  }
}

TEST_F(MainWindow, KeepsOneViewerAtMost)
{
  Window window;
  window.show();
  const std::string name = file("five.nwk", fiveNodes);
  trigger(window, "actionOpen", name);
  const auto* first = window.viewer();
  const std::size_t objects = Helper::instanceManager.numberOfObjects();
  window.viewer()->camera()->pan(0.0, 0.25);
  trigger(window, "actionOpen", "");
  EXPECT_EQ(window.viewer(), first) << "cancelling changes nothing";
  EXPECT_EQ(window.viewer()->camera()->position().y, -0.25);

  window._documentOpen(name); // the old viewer's deletion waits for the event loop
  trigger(window, "actionOpen", name);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(window.findChildren<QGLWidget*>().size(), 1);
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), objects);
  window._documentNew();
  EXPECT_EQ(window.centralWidget(), nullptr);
  window._documentOpen(name);
  window._documentOpen(name); // the window goes before the old viewer is deleted
}

/// Triggers an action from the event loop, as the user does: only there is the net under events.
void triggerFromLoop(QAction& action)
{
  bool triggered = false;
  QTimer::singleShot(0, &action,
                     [&]
                     {
                       triggered = true;
                       action.trigger();
                     });
  EXPECT_TRUE(QTest::qWaitFor([&] { return triggered; }));
}

TEST_F(MainWindow, OpensATreeOfTheServiceInPlaceOfTheShownOne)
{
  Window window;
  window.show();
  window._documentOpen(file("five.nwk", fiveNodes));
  QAction& action = window.action("actionOpen_from_orvex_Halvane");
  const auto nodesAfter = [&](int row, bool accept)
  {
    const Answer<QDialog> answer(
        [=](QDialog& dialog)
        {
          if (row >= 0)
          {
            dialog.findChild<QTreeWidget*>()->topLevelItem(row)->setSelected(true);
          }
          dialog.done(accept);
        });
    triggerFromLoop(action);
    return window.viewer()->tree()->getNumberOfNodes();
  };
  {
    LoopbackServer server;
    server.standInForAllOthers();
    server.answer("/trees", R"([{"id":8,"treeName":"bad"},{"id":-7,"treeName":"good"}])");
    server.answer("/trees/-7", R"({"root":{"name":"r","children":[]}})");
    server.answer("/trees/8", "{}");
    EXPECT_EQ(nodesAfter(1, false), 5u) << "cancelled";
    EXPECT_EQ(nodesAfter(-1, true), 5u) << "no row selected";
    EXPECT_THAT(boxAfter([&] { nodesAfter(0, true); }), testing::StartsWith("Error detected.|"));
    EXPECT_EQ(nodesAfter(1, true), 1u);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window.findChildren<QGLWidget*>().size(), 1);
  }
  EXPECT_THAT(boxAfter([&] { triggerFromLoop(action); }),
              testing::StartsWith("Error detected.|Error 3886626924: "));
  EXPECT_EQ(window.viewer()->tree()->getNumberOfNodes(), 1u) << "the shown tree stays";
}

TEST_F(MainWindow, RemembersItsGeometry)
{
  {
    Window window;
    window.show();
    window.resize(640, 500);
    window.action("actionQuit").trigger();
    EXPECT_FALSE(window.isVisible());
  }
  EXPECT_EQ(Window().size(), QSize(640, 500));
}

} // namespace
