#include "render/camera/CameraCladogram.h"
#include "render/camera/Viewport.h"
#include "support/Window.h"

#include <QTest>
#include <QWheelEvent>

/// A viewer of 301 leaves in a window, with the whole tree in view.
class ViewerTest : public DisplayTest
{
protected:
  ViewerTest()
  {
    window._documentOpen(file("wide.nwk", "(" + std::string(300, ',') + ");"));
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    viewer = window.viewer();
  }

  void sendMouse(QEvent::Type type, int y, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers)
  {
    QMouseEvent event(type, QPoint(10, y), Qt::LeftButton, held, modifiers);
    QApplication::sendEvent(viewer, &event);
  }

  double zoom() { return viewer->camera()->zoom(); }
  /// How far the view was moved, in world units.
  double shift() { return viewer->camera()->position().y + 0.5; }

  Window window;
  Lumbra::Viewer* viewer = nullptr;
};

TEST_F(ViewerTest, ADragOf30PixelsMovesTheTreeOrZooms)
{
  const double moves = 30.0 / (viewer->height() - 16);
  const double zooms = 60.0 / viewer->height();
  const Qt::MouseButtons left = Qt::LeftButton, right = Qt::RightButton, middle = Qt::MiddleButton;
  struct Drag
  {
    const char* what;
    double zoomBefore;
    Qt::MouseButtons held;
    Qt::KeyboardModifiers modifiers;
    double moved, zoomed;
  };
  for (const Drag& drag : {Drag{"left button", 1.0, left, {}, moves, 0.0},
                           Drag{"left button when zoomed", 4.7, left, {}, moves / 4.7, 0.0},
                           Drag{"right button when zoomed", 4.7, right, {}, 0.0, zooms},
                           Drag{"left button and Meta", 1.0, left, Qt::MetaModifier, 0.0, zooms},
                           Drag{"and Control", 1.0, left, Qt::ControlModifier, 0.0, zooms},
                           Drag{"both buttons", 1.0, left | right, {}, moves, 0.0},
                           Drag{"and Meta", 1.0, left | right, Qt::MetaModifier, 0.0, zooms},
                           Drag{"middle button", 1.0, middle, {}, 0.0, 0.0}})
  {
    SCOPED_TRACE(drag.what);
    viewer->camera()->reset();
    viewer->camera()->zoomByAmount(drag.zoomBefore - 1.0);
    sendMouse(QEvent::MouseButtonPress, 200, drag.held, drag.modifiers);
    EXPECT_EQ(shift(), 0.0) << "a press only records where the drag starts";
    sendMouse(QEvent::MouseMove, 170, drag.held, drag.modifiers);
    EXPECT_NEAR(shift(), drag.moved, 1e-9);
    EXPECT_NEAR(zoom(), drag.zoomBefore * (1.0 + drag.zoomed), 1e-7);
    sendMouse(QEvent::MouseButtonRelease, 20, Qt::NoButton, drag.modifiers);
    sendMouse(QEvent::MouseMove, 120, drag.held, drag.modifiers);
    EXPECT_NEAR(shift(), drag.moved, 1e-9) << "a drag starts anew after the release";
    sendMouse(QEvent::MouseButtonRelease, 120, Qt::NoButton, drag.modifiers);
  }
}

TEST_F(ViewerTest, APressStartsADragAlsoIfTheLastReleaseWasLost)
{
  sendMouse(QEvent::MouseButtonPress, 200, Qt::LeftButton, {});
  sendMouse(QEvent::MouseMove, 170, Qt::LeftButton, {});
  const double moved = shift();
  sendMouse(QEvent::MouseButtonPress, 20, Qt::LeftButton, {});
  EXPECT_EQ(shift(), moved);
}

TEST_F(ViewerTest, TheWheelZoomsUnlessItIsTurnedSideways)
{
  const auto zoomAfter = [this](const QPoint& turn)
  {
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), {}, turn, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewer, &event);
    return zoom();
  };
  EXPECT_NEAR(zoomAfter(QPoint(0, 120)), 1.12, 1e-12);
  EXPECT_NEAR(zoomAfter(QPoint(120, 0)), 1.12, 1e-12);
  viewer->camera()->zoomByAmount(7.88);
  orvex::render::Viewport small;
  small.set(0, 0, 100, 100);
  viewer->camera()->updateZoomInformation(20, 18, small);
  EXPECT_NEAR(zoomAfter(QPoint(120, 0)), 9.0, 1e-12) << "above the greatest zoom, as it was";
}

TEST_F(ViewerTest, SpaceShowsTheWholeTreeAgainOnceTheViewerWasClicked)
{
  const QImage whole = viewer->picture();
  viewer->camera()->zoomByAmount(1.0);
  viewer->camera()->pan(0.0, 0.1);
  EXPECT_NE(viewer->picture(), whole);
  QTest::mouseClick(viewer, Qt::LeftButton);
  EXPECT_EQ(window.focusWidget(), viewer);
  QTest::keyClick(viewer, Qt::Key_Return);
  EXPECT_EQ(zoom(), 2.0) << "other keys do nothing";
  QTest::keyClick(viewer, Qt::Key_Space);
  EXPECT_EQ(viewer->picture(), whole);
}
