#include "render/CameraCladogram.h"
#include "render/Viewport.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gtest/gtest.h>

#include <algorithm>

namespace
{

using orvex::render::CameraCladogram;
using orvex::render::Viewport;

TEST(Camera, DividesItsZoomIntoLevels)
{
  const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
  EXPECT_EQ(camera->zoomLevel(), 100u) << "1.0 / 0.1 * 10, before it knows a tree";
  constexpr unsigned int none = 4294967295u;
  // In the last row 18 times the leaves and one more passes 32 bits.
  for (const auto& [leaves, height, maximum, levels, first, last] :
       {std::tuple(30u, 600u, 0u, 1u, none, none), std::tuple(33u, 600u, 1u, 1u, 1u, 1u),
        std::tuple(100u, 600u, 3u, 3u, 1u, 3u), std::tuple(333u, 600u, 10u, 10u, 1u, 10u),
        std::tuple(366u, 600u, 11u, 10u, 0u, 10u), std::tuple(3366u, 600u, 101u, 10u, 0u, 10u),
        std::tuple(10000u, 600u, 300u, 30u, 0u, 30u),
        std::tuple(1000000u, 1000u, 18000u, 1800u, 0u, 1800u),
        std::tuple(238609294u, 1u, 14u, 10u, 0u, 10u)})
  {
    SCOPED_TRACE(leaves);
    camera->updateZoomInformation(leaves, 18, {0, 0, 900, height});
    EXPECT_EQ(camera->maximumZoom(), maximum);
    EXPECT_EQ(camera->numberOfZoomLevels(), levels);
    EXPECT_EQ(camera->zoomLevel(), first);
    camera->zoomByAmount(1e6);
    EXPECT_EQ(camera->zoomLevel(), last);
    EXPECT_EQ(camera->zoom(), std::max(1u, maximum)) << "the lower limit wins";
    camera->zoomByAmount(-1e7);
    EXPECT_EQ(camera->zoom(), 1.0);
  }
  camera->updateZoomInformation(1000, 18, {0, 0, 900, 600});
  camera->zoomByAmount(100.0);
  camera->updateZoomInformation(1000, 18, {0, 0, 900, 1200});
  EXPECT_EQ(camera->zoomLevel(), 20u) << "above a new limit until the zoom is changed";
  camera->zoomByAmount(0.0);
  EXPECT_EQ(camera->zoom(), 15.0);
}

TEST(Camera, PutsTheTreeBesideTheLabels)
{
  const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
  Viewport viewport{100, 0, 900, 600};
  const auto expectPixel = [&](double worldX, double worldY, double x, double y)
  {
    const auto pixel = camera->viewMatrix(viewport) * Kelmar::Math::Vector3d(worldX, worldY, 0.0);
    EXPECT_NEAR(pixel[0], x, 1e-9);
    EXPECT_NEAR(pixel[1], y, 1e-9);
  };
  for (const unsigned int pixels : {222u, 149u, 150u})
  {
    camera->horizontalPixelsForText(pixels);
    expectPixel(1.0, 1.0, 1.01 * (900 - std::max(pixels, 150u)), 592.0);
  }
  expectPixel(0.0, 0.0, 7.5, 8.0);
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
