#include "gui/Viewer.h"

#include "DisplayTest.h"
#include "render/CameraCladogram.h"
#include "tree/Document.h"

#include <QTest>
#include <QWheelEvent>

namespace
{

constexpr int width = 400;
constexpr int height = 300;

class ShownViewer : public DisplayTest
{
protected:
  void SetUp() override
  {
    DisplayTest::SetUp();
    std::string text = "(t0";
    for (int i = 1; i < 300; ++i)
    {
      text += ",t" + std::to_string(i);
    }
    const boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
    document->read(file("wide.nwk", text + ");"));
    viewer.reset(new Lumbra::Viewer(nullptr));
    viewer->setAttribute(Qt::WA_DeleteOnClose, false);
    viewer->tree(document->getTree());
    viewer->updateScene();
    viewer->resize(width, height);
    viewer->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(viewer.get()));
  }

  void TearDown() override
  {
    viewer.reset();
    DisplayTest::TearDown();
  }

  void mouse(QEvent::Type type, int y, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {})
  {
    QMouseEvent event(type, QPoint(10, y), Qt::LeftButton, held, modifiers);
    QApplication::sendEvent(viewer.get(), &event);
  }

  void wheel(QPoint turn)
  {
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), {}, turn, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewer.get(), &event);
  }

  double zoom() const { return viewer->camera()->zoom(); }
  double shift() const { return viewer->camera()->position().y + 0.5; }

  std::unique_ptr<Lumbra::Viewer> viewer;
};

TEST_F(ShownViewer, DragsWithEachButtonAndModifier)
{
  const double pixels = 30.0 / (height - 16);
  using Buttons = Qt::MouseButtons;
  for (const auto& [held, modifiers, moved, zoomed] : // a drag of 30 pixels moves, or zooms, or not
       std::vector<std::tuple<Buttons, Qt::KeyboardModifiers, double, double>>{
           {Qt::LeftButton, {}, pixels, 1.0},
           {Qt::RightButton, {}, 0.0, 1.2},
           {Qt::LeftButton, Qt::MetaModifier, 0.0, 1.2},
           {Qt::LeftButton, Qt::ControlModifier, 0.0, 1.2},
           {Qt::LeftButton | Qt::RightButton, {}, pixels, 1.0},
           {Qt::LeftButton | Qt::RightButton, Qt::MetaModifier, 0.0, 1.2},
           {Qt::MiddleButton, {}, 0.0, 1.0}})
  {
    SCOPED_TRACE(testing::Message() << held << " with " << modifiers);
    mouse(QEvent::MouseButtonPress, 200, held, modifiers);
    EXPECT_EQ(shift(), 0.0) << "a press only records where the drag starts";
    mouse(QEvent::MouseMove, 170, held, modifiers);
    EXPECT_NEAR(shift(), moved, 1e-9);
    EXPECT_NEAR(zoom(), zoomed, 1e-9);
    mouse(QEvent::MouseButtonRelease, 20, Qt::NoButton, modifiers);
    mouse(QEvent::MouseMove, 120, held, modifiers);
    EXPECT_NEAR(shift(), moved, 1e-9) << "a drag starts anew after the release";
    mouse(QEvent::MouseButtonRelease, 120, Qt::NoButton);
    viewer->camera()->reset();
  }
}

TEST_F(ShownViewer, ZoomsByTheWheelAndGoesBackBySpace)
{
  wheel({0, 120});
  EXPECT_NEAR(zoom(), 1.12, 1e-12);
  wheel({120, 0});
  EXPECT_NEAR(zoom(), 1.12, 1e-12) << "a sideways wheel is no zoom";
  wheel({0, -120});
  EXPECT_EQ(zoom(), 1.0) << "the least zoom shows the whole tree";

  const QImage whole = viewer->picture();
  wheel({0, 840});
  viewer->camera()->pan(0.0, 0.1);
  EXPECT_NE(viewer->picture(), whole);
  QTest::keyClick(viewer.get(), Qt::Key_Return);
  EXPECT_NE(zoom(), 1.0);
  QTest::keyClick(viewer.get(), Qt::Key_Space);
  EXPECT_EQ(viewer->picture(), whole);
  QTest::mouseClick(viewer.get(), Qt::LeftButton);
  EXPECT_EQ(viewer->window()->focusWidget(), viewer.get());
}

TEST_F(ShownViewer, WritesWhatItShowsOrNothing)
{
  const QImage shown = viewer->picture();
  for (const char* suffix : {"png", "bmp", "tif", "TIF", "jpg"})
  {
    SCOPED_TRACE(suffix);
    const std::string name = path(std::string("a picture\xc3\xa9.") + suffix);
    viewer->writeImageFile(name);
    const QImage read(QString::fromStdString(name));
    EXPECT_EQ(read.size(), QSize(width, height));
    if (*suffix != 'j')
    {
      EXPECT_EQ(read.convertToFormat(shown.format()), shown);
    }
  }
  for (const char* name : {"picture", "picture.", "picture.nwk", "no/such/folder.png"})
  {
    viewer->writeImageFile(path(name));
    EXPECT_FALSE(std::ifstream(path(name))) << name;
  }
}

TEST_F(ShownViewer, LivesBesideAnotherAndShrinksToNothing)
{
  auto* second = new Lumbra::Viewer(nullptr);
  second->show();
  viewer->resize(width, 0);
  viewer->resize(1, 1);
  viewer->picture();
  viewer.reset(); // while the second one's context is current
  EXPECT_FALSE(second->picture().isNull());
  delete second;
}

} // namespace
