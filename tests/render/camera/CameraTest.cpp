#include "render/camera/CameraCladogram.h"
#include "render/camera/Viewport.h"
#include "support/Outcome.h"

using orvex::render::Viewport;

class CameraTest : public testing::Test
{
protected:
  void expectPixel(double worldX, double worldY, double x, double y) const
  {
    const auto pixel = camera->viewMatrix(viewport) * Kelmar::Math::Vector3d(worldX, worldY, 0.0);
    EXPECT_NEAR(pixel[0], x, 1e-9);
    EXPECT_NEAR(pixel[1], y, 1e-9);
  }

  const boost::intrusive_ptr<orvex::render::CameraCladogram> camera{
      new orvex::render::CameraCladogram};
  Viewport viewport{100, 0, 900, 600};
};

TEST_F(CameraTest, DividesItsZoomIntoLevels)
{
  EXPECT_EQ(camera->zoomLevel(), 100u) << "1.0 / 0.1 * 10, before it knows a tree";
  constexpr unsigned int none = 4294967295u;
  struct Case
  {
    const char* what;
    unsigned int leaves, height, maximum, levels, first, last;
  };
  for (const Case& c : {Case{"a tree smaller than the view", 30, 600, 0, 1, none, none},
                        Case{"as high as the view", 33, 600, 1, 1, 1, 1},
                        Case{"up to 10 a level for each zoom", 100, 600, 3, 3, 1, 3},
                        Case{"of them the last", 333, 600, 10, 10, 1, 10},
                        Case{"up to 100 ten levels", 366, 600, 11, 10, 0, 10},
                        Case{"above it a level for ten zooms", 3366, 600, 101, 10, 0, 10},
                        Case{"ten thousand leaves", 10000, 600, 300, 30, 0, 30},
                        Case{"a million leaves", 1000000, 1000, 18000, 1800, 0, 1800},
                        Case{"18 times the leaves pass 32 bits", 238609294, 1, 14, 10, 0, 10}})
  {
    SCOPED_TRACE(c.what);
    camera->updateZoomInformation(c.leaves, 18, {0, 0, 900, c.height});
    EXPECT_EQ(camera->maximumZoom(), c.maximum);
    EXPECT_EQ(camera->numberOfZoomLevels(), c.levels);
    EXPECT_EQ(camera->zoomLevel(), c.first);
    camera->zoomByAmount(1e6);
    EXPECT_EQ(camera->zoomLevel(), c.last);
    EXPECT_EQ(camera->zoom(), std::max(1u, c.maximum)) << "the lower limit wins";
    camera->zoomByAmount(-1e7);
    EXPECT_EQ(camera->zoom(), 1.0);
  }
}

TEST_F(CameraTest, StaysAboveANewLimitUntilTheZoomIsChanged)
{
  camera->updateZoomInformation(1000, 18, {0, 0, 900, 600});
  camera->zoomByAmount(100.0);
  camera->updateZoomInformation(1000, 18, {0, 0, 900, 1200});
  EXPECT_EQ(camera->zoomLevel(), 20u);
  camera->zoomByAmount(0.0);
  EXPECT_EQ(camera->zoom(), 15.0);
}

TEST_F(CameraTest, KeepsRoomForLabelsAndMargins)
{
  for (const unsigned int pixels : {222u, 149u, 150u})
  {
    camera->horizontalPixelsForText(pixels);
    expectPixel(1.0, 1.0, 1.01 * (900 - std::max(pixels, 150u)), 592.0);
  }
  expectPixel(0.0, 0.0, 7.5, 8.0);
}

TEST_F(CameraTest, ZoomsAboutTheMiddleOfTheView)
{
  camera->horizontalPixelsForText(150);
  camera->updateZoomInformation(1000, 18, viewport);
  camera->pan(5.0, -0.25); // only y moves
  for (const double amount : {0.0, 1.0, 25.0})
  {
    camera->zoomByAmount(amount);
    expectPixel(1.0, 0.75, 757.5, 300.0);
    expectPixel(1.0, 0.76, 757.5, 300.0 + 0.01 * camera->zoom() * 584.0);
  }
}

TEST_F(CameraTest, GivesTheTreeAThirdOfAnAreaWithoutRoomBesideTheLabels)
{
  camera->horizontalPixelsForText(200);
  struct Case
  {
    unsigned int size;
    double width, height;
  };
  for (const Case& c : {Case{0, 1, 1}, Case{1, 1, 1}, Case{16, 5, 1}, Case{17, 5, 1},
                        Case{200, 66, 184}, Case{201, 1, 185}, Case{266, 66, 250}})
  {
    SCOPED_TRACE(c.size);
    viewport = {0, 0, c.size, c.size};
    expectPixel(1.0, 0.75, 1.01 * c.width, c.size * 0.5 + 0.25 * c.height);
  }
}
