#include "gui/Window.h"
#include "render/CameraCladogram.h"

#include <QTest>
#include <QWheelEvent>

namespace
{

/// A viewer in a window of its size, with a star of 300 leaves.
class ShownViewer : public DisplayTest
{
protected:
  void SetUp() override
  {
    DisplayTest::SetUp();
    window = std::make_unique<orvex::test::Window>();
    window->_documentOpen(file("wide.nwk", "(" + std::string(300, ',') + ");"));
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    viewer = window->viewer();
  }

  void TearDown() override
  {
    window.reset();
    DisplayTest::TearDown();
  }

  void mouse(QEvent::Type type, int y, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {})
  {
    QMouseEvent event(type, QPoint(10, y), Qt::LeftButton, held, modifiers);
    QApplication::sendEvent(viewer, &event);
  }

  void wheel(QPoint turn)
  {
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), {}, turn, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewer, &event);
  }

  double zoom() const { return viewer->camera()->zoom(); }
  double shift() const { return viewer->camera()->position().y + 0.5; }

  std::unique_ptr<orvex::test::Window> window;
  Lumbra::Viewer* viewer = nullptr;
};

TEST_F(ShownViewer, DragsWithEachButtonAndModifier)
{
  const double moves = 30.0 / (viewer->height() - 16);
  const double zooms = 1.0 + 60.0 / viewer->height();
  const Qt::MouseButtons both = Qt::LeftButton | Qt::RightButton;
  for (const auto& [held, modifiers, moved, zoomed] : // a drag of 30 pixels moves, or zooms, or not
       {std::tuple(Qt::MouseButtons(Qt::LeftButton), Qt::NoModifier, moves, 1.0),
        std::tuple(Qt::MouseButtons(Qt::RightButton), Qt::NoModifier, 0.0, zooms),
        std::tuple(Qt::MouseButtons(Qt::LeftButton), Qt::MetaModifier, 0.0, zooms),
        std::tuple(Qt::MouseButtons(Qt::LeftButton), Qt::ControlModifier, 0.0, zooms),
        std::tuple(both, Qt::NoModifier, moves, 1.0),
        std::tuple(both, Qt::MetaModifier, 0.0, zooms),
        std::tuple(Qt::MouseButtons(Qt::MiddleButton), Qt::NoModifier, 0.0, 1.0)})
  {
    SCOPED_TRACE(testing::Message() << held << " with " << modifiers);
    mouse(QEvent::MouseButtonPress, 200, held, modifiers);
    EXPECT_EQ(shift(), 0.0) << "a press only records where the drag starts";
    mouse(QEvent::MouseMove, 170, held, modifiers);
    EXPECT_NEAR(shift(), moved, 1e-9);
    EXPECT_NEAR(zoom(), zoomed, 1e-7);
    mouse(QEvent::MouseButtonRelease, 20, Qt::NoButton, modifiers);
    mouse(QEvent::MouseMove, 120, held, modifiers);
    EXPECT_NEAR(shift(), moved, 1e-9) << "a drag starts anew after the release";
    mouse(QEvent::MouseButtonRelease, 120, Qt::NoButton);
    viewer->camera()->reset();
  }
}

TEST_F(ShownViewer, ZoomsByTheWheelAndGoesBackBySpace)
{
  const QImage whole = viewer->picture();
  wheel({120, 0});
  EXPECT_EQ(zoom(), 1.0) << "a sideways wheel is no zoom";
  wheel({0, 120});
  EXPECT_NEAR(zoom(), 1.12, 1e-12);
  EXPECT_NE(viewer->picture(), whole);
  viewer->camera()->pan(0.0, 0.1);
  QTest::mouseClick(viewer, Qt::LeftButton);
  EXPECT_EQ(window->focusWidget(), viewer);
  QTest::keyClick(viewer, Qt::Key_Return);
  EXPECT_NE(zoom(), 1.0);
  QTest::keyClick(viewer, Qt::Key_Space);
  EXPECT_EQ(viewer->picture(), whole);
}

} // namespace
