#include "render/gl/OpenGL.h"

#include "LoopbackServer.h"
#include "gui/Window.h"
#include "render/CameraCladogram.h"

#include <gmock/gmock.h>

#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>

#include <cmath>
#include <memory>
#include <random>
#include <regex>

namespace
{

using namespace orvex::test;

/// Does at random what a user can do, and answers every dialog.
class RandomInteraction : public DisplayTest
{
protected:
  RandomInteraction()
  {
    const QByteArray given = qgetenv("ORVEX_SEED");
    seed = given.isEmpty() ? 20260704 : given.toUInt();
    random.seed(seed);
    QObject::connect(&_timer, &QTimer::timeout, [this] { answerDialog(); });
    _timer.start(1);
  }

  int below(int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); }
  template <class Type>
  Type oneOf(std::initializer_list<Type> list)
  {
    return *(list.begin() + below(static_cast<int>(list.size())));
  }

  void makeFiles()
  {
    std::string star = "(a";
    for (int i = 0; i < 400; ++i)
    {
      star += ",(b" + std::to_string(i) + ",c:2)";
    }
    files = {file("five.nwk", "((a,b),c);"), file("star.tre", star + ");"),
             file("one.nwk", "("),           file("empty.nwk", ""),
             file("bad.nwk", "a,b"),         file("length.nwk", "(a:x,b);"),
             file("tree.txt", "(a,b);"),     path("missing.nwk")};
  }

  void event(Window& window)
  {
    const int kind = below(160);
    if (kind < 2)
    {
      kind == 0 ? window._documentNew() : switchService();
    }
    else if (kind < 6)
    {
      window._documentOpen(files[std::size_t(below(8))]);
    }
    else if (kind < 20)
    {
      triggerFromLoop(window.action(kind < 10
                                        ? oneOf({"actionOpen", "actionInfo", "actionExport_Image",
                                                 "actionOpen_from_orvex_Halvane"})
                                        : "actionAlways_Show_Tree"));
    }
    else if (kind < 30)
    {
      resize(window);
    }
    else if (window.viewer())
    {
      inViewer(*window.viewer());
    }
    QCoreApplication::processEvents();
    deleteWhatIsDoomed();
  }

  std::string unexpected;
  unsigned int seed = 0;

private:
  void switchService()
  {
    if (service)
    {
      return service.reset();
    }
    service = std::make_unique<LoopbackServer>();
    service->standInForAllOthers();
    service->answer("/trees", R"([{"id":1,"treeName":"good"},{"id":2,"treeName":"bad"},{}])");
    service->answer("/trees/1", R"({"root":{"name":"r","children":[{"name":"a","children":[]}]}})");
    service->answer("/trees/2", R"({"root":{"name":7}})");
  }

  void resize(Window& window)
  {
    const bool wide = below(50) == 0;
    const QSize size(1 + below(wide ? 3000 : 500), 1 + below(wide ? 2000 : 400));
    // A window's menu has a least size; the viewer alone can be smaller.
    QWidget* widget =
        window.viewer() && below(2) ? window.viewer() : static_cast<QWidget*>(&window);
    widget->resize(widget != &window && below(4) == 0 ? QSize(1, 1) : size);
  }

  void inViewer(Lumbra::Viewer& viewer)
  {
    const QPointF at(below(600) - 50, below(500) - 50);
    const Qt::MouseButton button = oneOf({Qt::LeftButton, Qt::RightButton});
    const auto keys = oneOf({Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier});
    const auto type = oneOf({QEvent::MouseButtonPress, QEvent::MouseMove,
                             QEvent::MouseButtonRelease, QEvent::Wheel, QEvent::KeyPress});
    if (type == QEvent::Wheel)
    {
      QWheelEvent event(at, at, QPoint(), QPoint(below(200), below(100000) - 40000), button, keys,
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(&viewer, &event);
    }
    else if (type == QEvent::KeyPress)
    {
      QTest::keyClick(&viewer, oneOf({Qt::Key_A, Qt::Key_Space}));
    }
    else
    {
      const bool up = type == QEvent::MouseButtonRelease;
      QMouseEvent event(type, at, button, up ? Qt::NoButton : button, keys);
      QCoreApplication::sendEvent(&viewer, &event);
    }
  }

  void answerDialog()
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
          "Error Loading File .*\\|Error 2991944830: (Unexpected comma encountered|"
          "bad lexical cast.*|.*No such file or directory.*)\n|"
          "Error detected\\.\\|(Error 3886626924: .*connect.*|The tree service did not answer "
          "with.*|Node .*|boost::bad_get.*)");
      const std::string text = confirm(*box);
      unexpected += std::regex_match(text, expected) ? "" : text + "\n";
    }
    else if (auto* dialog = qobject_cast<QFileDialog*>(modal))
    {
      const bool saves = dialog->acceptMode() == QFileDialog::AcceptSave;
      const std::string name = saves ? path("p" + std::to_string(_pictures++) + ".png")
                                     : files[std::size_t(below(7))]; // but for the missing one
      type(*dialog, below(4) == 0 ? "" : name);
    }
    else if (auto* list = qobject_cast<QDialog*>(modal))
    {
      auto* rows = list->findChild<QTreeWidget*>();
      rows->topLevelItem(below(rows->topLevelItemCount()))->setSelected(true);
      list->done(below(4) != 0);
    }
  }

  std::mt19937 random;
  std::vector<std::string> files;
  std::unique_ptr<LoopbackServer> service;
  QTimer _timer;
  int _pictures = 0;
};

TEST_F(RandomInteraction, BreaksNothing)
{
  std::fprintf(stderr, "ORVEX_SEED=%u\n", seed);
  makeFiles();
  Window window;
  window.show();
  const std::size_t base = Helper::instanceManager.numberOfObjects();
  int shown = 0;
  for (int i = 0; i < 10000; ++i)
  {
    SCOPED_TRACE(testing::Message() << "event " << i << " of seed " << seed);
    event(window);
    ASSERT_EQ(unexpected, "");
    if (Lumbra::Viewer* viewer = window.viewer())
    {
      ++shown;
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
  EXPECT_GT(shown, 5000) << "else the events met no tree";
  EXPECT_THAT(log(), testing::Not(testing::ContainsRegex("(^|\n)Error [^8]")))
      << "only the net under events writes";
  window._documentNew();
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), base);
}

} // namespace
