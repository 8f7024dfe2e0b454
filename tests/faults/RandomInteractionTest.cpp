#include "render/gl/OpenGL.h"

#include "DisplayTest.h"
#include "LoopbackServer.h"
#include "gui/MainWindow.h"
#include "gui/Viewer.h"
#include "render/CameraCladogram.h"
#include "tree/Tree.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>

#include <cmath>
#include <memory>
#include <random>
#include <regex>

namespace
{

struct Window : Lumbra::MainWindow
{
  using MainWindow::_documentNew;
  using MainWindow::_documentOpen;

  Lumbra::Viewer* viewer() const { return dynamic_cast<Lumbra::Viewer*>(centralWidget()); }
};

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
    lastEvent = below(16);
    switch (lastEvent)
    {
    case 0:
      occasionally(3, [&] { window._documentOpen(files[static_cast<std::size_t>(below(8))]); });
      break;
    case 1:
      occasionally(10, [&] { trigger(window, "actionOpen"); });
      break;
    case 2:
      occasionally(10, [&] { trigger(window, "actionInfo"); });
      break;
    case 3:
      trigger(window, "actionAlways_Show_Tree");
      break;
    case 4:
      occasionally(10, [&] { trigger(window, "actionExport_Image"); });
      break;
    case 5:
      occasionally(10, [&] { trigger(window, "actionOpen_from_orvex_Halvane"); });
      break;
    case 6:
      occasionally(40, [&] { switchService(); });
      break;
    case 7:
      occasionally(20, [&] { window._documentNew(); });
      break;
    case 8:
      resize(window);
      break;
    default:
      inViewer(window.viewer());
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  std::string unexpected;
  unsigned int seed = 0;
  int lastEvent = 0;
  std::mt19937 random;
  std::vector<std::string> files;
  std::unique_ptr<LoopbackServer> service;

private:
  template <class Action>
  void occasionally(int oneIn, Action action)
  {
    if (below(oneIn) == 0)
    {
      action();
    }
  }

  // From the event loop: only there is the net under events.
  void trigger(Window& window, const char* name)
  {
    auto* action = window.findChild<QAction*>(name);
    bool triggered = false;
    QTimer::singleShot(0, action,
                       [&]
                       {
                         triggered = true;
                         action->trigger();
                       });
    EXPECT_TRUE(QTest::qWaitFor([&] { return triggered; }));
  }

  void switchService()
  {
    if (service)
    {
      service.reset();
      return;
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
    if (window.viewer() && below(2) == 0)
    {
      window.viewer()->resize(below(4) == 0 ? QSize(1, 1) : size);
      return;
    }
    window.resize(size);
  }

  void inViewer(Lumbra::Viewer* viewer)
  {
    if (!viewer)
    {
      return;
    }
    const QPointF at(below(600) - 50, below(500) - 50);
    const Qt::MouseButton button = below(2) ? Qt::LeftButton : Qt::RightButton;
    const Qt::KeyboardModifiers keys = below(4) ? Qt::NoModifier : Qt::ControlModifier;
    const auto mouse = [&](QEvent::Type type)
    {
      const bool up = type == QEvent::MouseButtonRelease;
      QMouseEvent event(type, at, button, up ? Qt::NoButton : button, keys);
      QCoreApplication::sendEvent(viewer, &event);
    };
    switch (below(5))
    {
    case 0:
      return mouse(QEvent::MouseButtonPress);
    case 1:
      return mouse(QEvent::MouseButtonRelease);
    case 2:
      return mouse(QEvent::MouseMove);
    case 3:
    {
      QWheelEvent event(at, at, QPoint(), QPoint(below(200), below(100000) - 40000), button, keys,
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(viewer, &event);
      return;
    }
    default:
      QTest::keyClick(viewer, below(3) ? Qt::Key_A : Qt::Key_Space);
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
      const std::string text = (box->windowTitle() + "|" + box->text()).toStdString();
      static const std::regex expected(
          "Tree info\\|Number of nodes: [0-9]+\nNumber of leaves: [0-9]+|"
          "Error Loading File .*\\|Error 2991944830: (Unexpected comma encountered|"
          "bad lexical cast.*|.*No such file or directory.*)\n|"
          "Error detected\\.\\|(Error 3886626924: .*connect.*|The tree service did not answer "
          "with.*|"
          "Node .*|boost::bad_get.*)");
      if (!std::regex_match(text, expected))
      {
        unexpected += text + "\n";
      }
      box->button(QMessageBox::Ok)->click();
    }
    else if (auto* dialog = qobject_cast<QFileDialog*>(modal))
    {
      const bool saves = dialog->acceptMode() == QFileDialog::AcceptSave;
      const std::string name = saves ? path("p" + std::to_string(_pictures++) + ".png")
                                     : files[static_cast<std::size_t>(below(7))];
      dialog->findChild<QLineEdit*>()->setText(QString::fromStdString(name));
      QMetaObject::invokeMethod(dialog, below(4) == 0 ? "reject" : "accept");
    }
    else if (auto* list = qobject_cast<QDialog*>(modal))
    {
      auto* rows = list->findChild<QTreeWidget*>();
      rows->topLevelItem(below(rows->topLevelItemCount()))->setSelected(true);
      list->done(below(4) != 0);
    }
  }

  QTimer _timer;
  int _pictures = 0;
};

void expectFinite(const orvex::render::CameraCladogram& camera)
{
  for (const double number :
       {camera.position().x, camera.position().y, camera.zoom(), camera.maximumZoom()})
  {
    ASSERT_TRUE(std::isfinite(number));
  }
}

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
      ASSERT_NO_FATAL_FAILURE(expectFinite(*viewer->camera()));
      viewer->makeCurrent();
      ASSERT_EQ(glGetError(), GLenum(GL_NO_ERROR)) << "after event kind " << lastEvent;
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
