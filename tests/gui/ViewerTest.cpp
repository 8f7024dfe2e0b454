#include "render/CameraCladogram.h"
#include "support/Window.h"

#include <QTest>
#include <QWheelEvent>

namespace
{

using Viewer = DisplayTest;

TEST_F(Viewer, FollowsMouseWheelAndSpace)
{
  orvex::test::Window window;
  window._documentOpen(file("wide.nwk", "(" + std::string(300, ',') + ");"));
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  Lumbra::Viewer* const viewer = window.viewer();
  const QImage whole = viewer->picture();
  const auto zoom = [&] { return viewer->camera()->zoom(); };
  const auto shift = [&] { return viewer->camera()->position().y + 0.5; };
  const double moves = 30.0 / (viewer->height() - 16);
  const double zooms = 60.0 / viewer->height();
  const Qt::MouseButtons both = Qt::LeftButton | Qt::RightButton;
  for (const auto& [start, held, modifiers, moved, zoomed] : // by a drag of 30 pixels
       {std::tuple(1.0, Qt::MouseButtons(Qt::LeftButton), Qt::NoModifier, moves, 0.0),
        std::tuple(4.7, Qt::MouseButtons(Qt::LeftButton), Qt::NoModifier, moves / 4.7, 0.0),
        std::tuple(4.7, Qt::MouseButtons(Qt::RightButton), Qt::NoModifier, 0.0, zooms),
        std::tuple(1.0, Qt::MouseButtons(Qt::LeftButton), Qt::MetaModifier, 0.0, zooms),
        std::tuple(1.0, Qt::MouseButtons(Qt::LeftButton), Qt::ControlModifier, 0.0, zooms),
        std::tuple(1.0, both, Qt::NoModifier, moves, 0.0),
        std::tuple(1.0, both, Qt::MetaModifier, 0.0, zooms),
        std::tuple(1.0, Qt::MouseButtons(Qt::MiddleButton), Qt::NoModifier, 0.0, 0.0)})
  {
    SCOPED_TRACE(testing::Message() << held << " with " << modifiers << " at " << start);
    const auto mouse = [&, held = held, modifiers = modifiers](QEvent::Type type, int y)
    {
      const bool up = type == QEvent::MouseButtonRelease;
      QMouseEvent event(type, QPoint(10, y), Qt::LeftButton, up ? Qt::NoButton : held, modifiers);
      QApplication::sendEvent(viewer, &event);
    };
    viewer->camera()->reset();
    viewer->camera()->zoomByAmount(start - 1.0);
    mouse(QEvent::MouseButtonPress, 200);
    EXPECT_EQ(shift(), 0.0) << "a press only records where the drag starts";
    mouse(QEvent::MouseMove, 170);
    EXPECT_NEAR(shift(), moved, 1e-9);
    EXPECT_NEAR(zoom(), start * (1.0 + zoomed), 1e-7);
    mouse(QEvent::MouseButtonRelease, 20);
    mouse(QEvent::MouseMove, 120);
    EXPECT_NEAR(shift(), moved, 1e-9) << "a drag starts anew after the release";
    mouse(QEvent::MouseButtonRelease, 120);
  }
  viewer->camera()->reset();
  for (const QPoint turn : {QPoint(120, 0), QPoint(0, 120)}) // a sideways wheel is no zoom
  {
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), {}, turn, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewer, &event);
    EXPECT_NEAR(zoom(), turn.y() ? 1.12 : 1.0, 1e-12);
  }
  viewer->camera()->pan(0.0, 0.1);
  EXPECT_NE(viewer->picture(), whole);
  QTest::mouseClick(viewer, Qt::LeftButton);
  EXPECT_EQ(window.focusWidget(), viewer);
  QTest::keyClick(viewer, Qt::Key_Return);
  EXPECT_NE(zoom(), 1.0);
  QTest::keyClick(viewer, Qt::Key_Space);
  EXPECT_EQ(viewer->picture(), whole);
}

} // namespace
