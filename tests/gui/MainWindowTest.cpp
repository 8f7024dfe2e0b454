#include "render/DisplaySettings.h"
#include "support/Window.h"
#include "tree/Tree.h"

#include <gmock/gmock.h>

#include <QTest>

#include <optional>

namespace
{

using namespace orvex::test;
using MainWindow = DisplayTest;

const char* const fiveNodes = "((a,b),c);";

const char* const treeActions[] = {"actionInfo", "actionExport_Image", "actionAlways_Show_Tree"};

void choose(Window& window, const char* action, const std::string& name)
{
  answering<QFileDialog>([&] { window.action(action).trigger(); },
                         [&](QFileDialog& dialog) { type(dialog, name); });
}

TEST_F(MainWindow, OpensShowsAndExportsATree)
{
  std::optional<Window> owner(std::in_place);
  Window& window = *owner;
  EXPECT_EQ(window.size(), QSize(800, 600));
  EXPECT_EQ(window.windowIcon().pixmap(64, 64).size(), QSize(63, 64));
  EXPECT_FALSE(window.action("actionOpen").icon().pixmap(32).isNull());
  for (const char* name : treeActions)
  {
    EXPECT_FALSE(window.action(name).isEnabled()) << name;
  }
  window.show();
  choose(window, "actionOpen", file("five \xc3\xa9.nwk", fiveNodes));
  EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the wait cursor is gone";
  EXPECT_EQ(boxAfter([&] { window.action("actionInfo").trigger(); }),
            "Tree info|Number of nodes: 5\nNumber of leaves: 3");
  EXPECT_THAT(boxAfter([&] { window.action("actionAbout").trigger(); }),
              testing::MatchesRegex("About\\|.*tree viewer prototype.*\n.+"));
  QTest::qWait(50); // the layout gives the viewer its place
  choose(window, "actionExport_Image", path("picture.png"));
  EXPECT_EQ(QImage(QString::fromStdString(path("picture.png"))).size(), window.viewer()->size());

  QAction& always = window.action("actionAlways_Show_Tree");
  EXPECT_FALSE(always.isCheckable()) << "until it is used";
  for (const bool on : {true, false, true})
  {
    always.trigger();
    EXPECT_EQ(always.isChecked(), on);
    EXPECT_EQ(window.viewer()->settings()->alwaysUseHighLod(), on);
  }
  const auto* first = window.viewer();
  choose(window, "actionOpen", "");
  EXPECT_EQ(window.viewer(), first) << "cancelling changes nothing";
  const std::size_t objects = Helper::instanceManager.numberOfObjects();
  window._documentOpen(file("five.nwk", fiveNodes)); // the first waits for its deletion
  EXPECT_FALSE(window.viewer()->settings()->alwaysUseHighLod()) << "a new viewer starts anew";
  EXPECT_TRUE(always.isChecked()) << "the mark is written by the action only";
  deleteWhatIsDoomed();
  EXPECT_EQ(window.findChildren<QGLWidget*>().size(), 1);
  EXPECT_LE(Helper::instanceManager.numberOfObjects(), objects) << "no glyph was drawn yet";
  window.resize(640, 500);
  window.action("actionQuit").trigger();
  EXPECT_FALSE(window.isVisible());
  window._documentOpen(path("five.nwk"));
  owner.reset(); // before the replaced viewer is deleted
  EXPECT_EQ(Window().size(), QSize(640, 500)) << "as the last one was left";
}

TEST_F(MainWindow, ShowsWhyAFileCantBeReadAndKeepsNoTree)
{
  Window window;
  for (const auto& [name, text] : {std::pair("empty.nwk", ""), std::pair("tree.txt", fiveNodes)})
  {
    window._documentOpen(file(name, text));
    EXPECT_FALSE(window.viewer()->tree()) << "an empty view for a file without a tree";
    EXPECT_EQ(boxAfter([&] { window.action("actionInfo").trigger(); }),
              "Tree info|Number of nodes: 0\nNumber of leaves: 0");
  }
  const std::string bad = file("<b>bad.nwk", "a,b);");
  EXPECT_EQ(boxAfter([&] { choose(window, "actionOpen", bad); }),
            "Error Loading File " + bad + "|Error 2991944830: Unexpected comma encountered\n");
  EXPECT_EQ(window.centralWidget(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  for (const char* name : treeActions)
  {
    EXPECT_TRUE(window.action(name).isEnabled());
    window.action(name).trigger(); // a box would wait for ever
  }
  EXPECT_EQ(log(), "");
}

} // namespace
