#include "render/CameraCladogram.h"
#include "render/Viewport.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gmock/gmock.h>

namespace
{

using Kelmar::Math::Vector3d;
using orvex::render::Viewport;

class Camera : public testing::Test
{
protected:
  boost::intrusive_ptr<orvex::render::CameraCladogram> camera{new orvex::render::CameraCladogram};
  Viewport viewport{100, 0, 900, 600};

  void expectPixel(double worldX, double worldY, double x, double y)
  {
    const Vector3d pixel = camera->viewMatrix(viewport) * Vector3d(worldX, worldY, 0.0);
    EXPECT_NEAR(pixel[0], x, 1e-9);
    EXPECT_NEAR(pixel[1], y, 1e-9);
  }
};

TEST_F(Camera, DividesItsZoomIntoLevels)
{
  EXPECT_EQ(camera->zoomLevel(), 100u) << "1.0 / 0.1 * 10, before it knows a tree";
  camera->zoomByAmount(5.0);
  EXPECT_EQ(camera->zoom(), 1.0) << "the lower limit wins";
  constexpr unsigned int most = 4294967295u;
  // Leaves, height; greatest zoom, levels, level at zoom 1, level at the greatest zoom. In the last
  // row 18 times the leaves and one more passes 32 bits.
  using Case = std::tuple<unsigned, unsigned, unsigned, unsigned, unsigned, unsigned>;
  for (const auto& [leaves, height, maximum, levels, first, last] :
       {Case{30, 600, 0, 1, most, most}, Case{33, 600, 1, 1, 1, 1}, Case{100, 600, 3, 3, 1, 3},
        Case{333, 600, 10, 10, 1, 10}, Case{366, 600, 11, 10, 0, 10},
        Case{3333, 600, 100, 10, 0, 10}, Case{3366, 600, 101, 10, 0, 10},
        Case{10000, 600, 300, 30, 0, 30}, Case{1000000, 1000, 18000, 1800, 0, 1800},
        Case{238609294, 1, 14, 10, 0, 10}})
  {
    camera->updateZoomInformation(leaves, 18, {0, 0, 900, height});
    const unsigned int before = camera->zoomLevel();
    camera->zoomByAmount(1e6);
    EXPECT_THAT((std::vector<double>{camera->maximumZoom(), double(camera->numberOfZoomLevels()),
                                     double(before), double(camera->zoomLevel()), camera->zoom()}),
                testing::ElementsAre(maximum, levels, first, last, std::max(1u, maximum)))
        << leaves;
    camera->zoomByAmount(-1e7);
    EXPECT_EQ(camera->zoom(), 1.0);
  }
}

TEST_F(Camera, KeepsAZoomAboveANewLimitUntilItIsChanged)
{
  camera->updateZoomInformation(1000, 18, viewport);
  camera->zoomByAmount(100.0);
  camera->updateZoomInformation(1000, 18, {0, 0, 900, 1200});
  EXPECT_EQ(camera->zoom(), 30.0);
  EXPECT_EQ(camera->zoomLevel(), 20u) << "above the 10 that there are";
  camera->zoomByAmount(0.0);
  EXPECT_EQ(camera->zoom(), 15.0);
  camera->horizontalPixelsForText(222);
  camera->pan(0.0, 3.0);
  camera->reset();
  expectPixel(1.0, 1.0, 1.01 * (900 - 222), 592.0);
}

TEST_F(Camera, PutsTheTreeBesideTheLabels)
{
  for (const unsigned int pixels : {151u, 0u, 149u, 150u})
  {
    camera->horizontalPixelsForText(pixels);
    EXPECT_EQ(camera->horizontalPixelsForText(), std::max(pixels, 150u));
  }
  expectPixel(0.0, 0.0, 7.5, 8.0);
  expectPixel(0.0, 1.0, 7.5, 592.0);
  camera->updateZoomInformation(1000, 18, viewport);
  camera->pan(5.0, -0.25); // only y moves
  for (const double amount : {0.0, 1.0, 25.0})
  {
    camera->zoomByAmount(amount);
    expectPixel(1.0, 0.75, 757.5, 300.0); // what stands in the middle stays there
    expectPixel(1.0, 0.76, 757.5, 300.0 + 0.01 * camera->zoom() * 584.0);
  }
  for (const unsigned int size : {0u, 1u, 16u}) // drawn into one pixel
  {
    viewport = {0, 0, size, size};
    expectPixel(1.0, 0.76, 1.01, size * 0.5 + 0.01 * camera->zoom());
  }
}

} // namespace
