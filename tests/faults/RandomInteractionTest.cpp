#include "render/gl/device/OpenGL.h"

#include "generate/TreeGenerator.h"
#include "render/camera/CameraCladogram.h"
#include "support/LoopbackServer.h"
#include "support/Window.h"

#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>

#include <cmath>
#include <random>
#include <regex>

static std::mt19937 chance;

static int below(int limit)
{
  return static_cast<int>(chance() % static_cast<unsigned int>(limit));
}

template <class Type>
static Type oneOf(std::initializer_list<Type> list)
{
  return *(list.begin() + below(static_cast<int>(list.size())));
}

/// Does at random what a user can do, and answers every dialog.
class RandomInteractionTest : public DisplayTest
{
protected:
  RandomInteractionTest()
  {
    switchService();
    QObject::connect(&_timer, &QTimer::timeout, [this] { _answerDialog(); });
    _timer.start(1);
  }

  /// Chooses whether the tree service answers from now on or cannot be reached.
  void switchService()
  {
    // The service acts as a proxy: so it needs no fixed port, which another program may have.
    const std::string proxy = below(2) ? _service.url() : "http://127.0.0.1:1";
    setenv("http_proxy", proxy.c_str(), 1);
    setenv("no_proxy", "none.invalid", 1);
  }

  /// Writes one of eight files. \param files  7 leaves out the last one, which does not exist and
  /// which a dialog would not accept
  std::string anyFile(int files)
  {
    using namespace orvex::generate;
    static const std::string bushy = TreeGenerator(3).newick(TreeShape::Random, 800, true);
    static const std::pair<const char*, std::string> all[] = {
        {"five.nwk", "((a,b),c);"}, {"bushy.tre", bushy}, {"one.nwk", "("},
        {"empty.nwk", ""},          {"bad.nwk", "a,b"},   {"length.nwk", "(a:x,b);"},
        {"tree.txt", "(a,b);"}};
    const int chosen = below(files);
    return chosen == 7 ? path("missing.nwk") : file(all[chosen].first, all[chosen].second);
  }

  std::string unexpected;

private:
  void _answerDialog()
  {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible())
    {
      return;
    }
    if (auto* box = qobject_cast<QMessageBox*>(modal))
    {
      static const std::regex expected(
          "Tree info\\|Number of nodes: [0-9]+\nNumber of leaves: [0-9]+|"
          "Error Loading File .*\\|Error 2991944830: (Unexpected comma encountered: line 1, column "
          "[0-9]+\\.|"
          "Line 1, column 4: \"x\" is no branch length.*|.*No such file or directory.*)\n|"
          "Error detected\\.\\|(Error 3886626924: .*connect.*|The tree service did not answer "
          "with.*|The \"name\" of node .*)");
      const std::string text = confirm(*box);
      unexpected += std::regex_match(text, expected) ? "" : text + "\n";
    }
    else if (auto* dialog = qobject_cast<QFileDialog*>(modal))
    {
      const bool saves = dialog->acceptMode() == QFileDialog::AcceptSave;
      const std::string name = saves ? path(std::to_string(chance()) + ".png") : anyFile(7);
      type(*dialog, below(4) == 0 ? "" : name);
    }
    else if (auto* list = qobject_cast<QDialog*>(modal))
    {
      auto* rows = list->findChild<QTreeWidget*>();
      EXPECT_EQ(rows->headerItem()->text(0) + rows->topLevelItem(2)->text(0) +
                    rows->topLevelItem(1)->text(1),
                "id3bad");
      rows->topLevelItem(below(rows->topLevelItemCount()))->setSelected(true);
      list->done(below(4) != 0);
    }
  }

  const LoopbackServer _service{
      [](httplib::Server& paths)
      {
        for (const auto& [path, answer] :
             {std::pair("/trees",
                        R"([{"id":1,"treeName":"good"},{"id":2,"treeName":"bad"},{"id":3}])"),
              std::pair("/trees/1",
                        R"({"root":{"name":"r","children":[{"name":"a","children":[]}]}})"),
              std::pair("/trees/2", R"({"root":{"name":7}})")})
        {
          paths.Get(std::string("http://[^/]*") + path, answerWith(answer, "application/json"));
        }
      }};
  QTimer _timer;
};

static QPoint place()
{
  return QPoint(below(600) - 50, below(500) - 50);
}

static Qt::KeyboardModifiers keys()
{
  return oneOf({Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier});
}

static void sendMouse(QWidget& target, QEvent::Type type)
{
  const auto button = oneOf({Qt::LeftButton, Qt::RightButton});
  const bool up = type == QEvent::MouseButtonRelease;
  QMouseEvent event(type, place(), button, up ? Qt::NoButton : button, keys());
  QCoreApplication::sendEvent(&target, &event);
}

static void sendWheel(QWidget& target)
{
  QWheelEvent event(place(), place(), QPoint(), QPoint(below(200), below(100000) - 40000),
                    Qt::NoButton, keys(), Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&target, &event);
}

/// \param base  the number of counted objects without a tree
static void expectSound(const Window& window, std::size_t base)
{
  if (Lumbra::Viewer* viewer = window.viewer())
  {
    const orvex::render::CameraCladogram& camera = *viewer->camera();
    ASSERT_TRUE(std::isfinite(camera.position().x + camera.position().y + camera.zoom()));
    viewer->makeCurrent();
    ASSERT_EQ(glGetError(), GLenum(GL_NO_ERROR));
  }
  else
  {
    ASSERT_EQ(Helper::instanceManager.numberOfObjects(), base);
  }
}

TEST_F(RandomInteractionTest, BreaksNothing)
{
  // --gtest_random_seed=N makes another run.
  const unsigned int seed = 20260704u + static_cast<unsigned int>(GTEST_FLAG_GET(random_seed));
  chance.seed(seed);
  Window window;
  window.show();
  const std::size_t base = Helper::instanceManager.numberOfObjects();
  const auto target = [&]() -> QWidget&
  { return window.viewer() ? *window.viewer() : static_cast<QWidget&>(window); };
  const std::function<void()> events[] = {
      [&] { window._documentNew(); },
      [&] { switchService(); },
      [&] { window._documentOpen(anyFile(8)); },
      [&]
      {
        triggerFromLoop(window.action(oneOf(
            {"actionOpen", "actionInfo", "actionExport_Image", "actionOpen_from_orvex_Halvane"})));
      },
      [&] { triggerFromLoop(window.action("actionAlways_Show_Tree")); },
      [&]
      {
        QWidget& widget = below(2) ? target() : window;
        widget.resize(below(50) == 0  ? QSize(1 + below(3000), 1 + below(2000))
                      : below(4) == 0 ? QSize(1, 1) // only the viewer alone can be so small
                                      : QSize(1 + below(500), 1 + below(400)));
      },
      [&] { sendWheel(target()); },
      [&] {
        QTest::keyClick(&target(), oneOf({Qt::Key_A, Qt::Key_Space}));
      },
      [&] { sendMouse(target(), QEvent::MouseButtonPress); },
      [&] { sendMouse(target(), QEvent::MouseMove); },
      [&] { sendMouse(target(), QEvent::MouseButtonRelease); }};
  std::discrete_distribution<std::size_t> kinds{1, 1, 4, 4, 10, 10, 26, 26, 26, 26, 26};
  int shown = 0;
  for (int i = 0; i < 10000; ++i)
  {
    SCOPED_TRACE(testing::Message() << "event " << i << " of seed " << seed);
    events[kinds(chance)]();
    QCoreApplication::processEvents();
    deleteWhatIsDoomed();
    ASSERT_EQ(unexpected, "");
    ASSERT_NO_FATAL_FAILURE(expectSound(window, base));
    shown += window.viewer() ? 1 : 0;
  }
  EXPECT_GT(shown, 5000) << "most events need a tree";
  EXPECT_THAT(log(), testing::Not(testing::ContainsRegex("(^|\n)Error [^8]")))
      << "only Application::notify reports errors here";
  window._documentNew();
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), base);
}
