#include "render/Box2D.h"
#include "render/Culler2D.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gmock/gmock.h>

#include <cmath>

namespace
{

using Kelmar::Math::Matrix44d;
using orvex::render::Box2D;
using orvex::render::Culler2D;
using Point = orvex::render::Point2D<double>;

Box2D box(double x0, double y0, double x1, double y1)
{
  return {{x0, y0}, {x1, y1}};
}

void expectBox(const Box2D& b, double x0, double y0, double x1, double y1)
{
  EXPECT_THAT((std::vector{b.minimum.x, b.minimum.y, b.maximum.x, b.maximum.y}),
              testing::ElementsAre(x0, y0, x1, y1));
}

TEST(Box, GrowsWithWhatIsAdded)
{
  Box2D grown;
  EXPECT_FALSE(grown.valid());
  grown.add(Point{2.0, -3.0});
  EXPECT_TRUE(grown.valid());
  grown.add(Point{1.0, 4.0});
  grown.add(Point{std::nan(""), 5.0});
  grown.add(Box2D());
  grown.add(box(9.0, 0.0, 8.0, 0.0)); // not valid
  expectBox(grown, 1.0, -3.0, 2.0, 5.0);
  grown.add(box(0.0, 0.0, 1.5, 6.0));
  expectBox(grown, 0.0, -3.0, 2.0, 6.0);
}

TEST(Culler, CullsWhatTheViewDoesNotShow)
{
  // A view of exactly the unit square: powers of two keep its edges exact.
  const Matrix44d projection = Matrix44d::orthographic(0.0, 64.0, 0.0, 32.0, -1.0, 1.0);
  const boost::intrusive_ptr<Culler2D> culler(
      new Culler2D(Matrix44d::scale({64.0, 32.0, 1.0}), projection));
  expectBox(culler->box(), 0.0, 0.0, 1.0, 1.0);
  const std::vector<std::tuple<const char*, Box2D, bool>> cases = {
      {"inside", box(0.2, 0.2, 0.4, 0.4), true},
      {"around", box(-1.0, -1.0, 2.0, 2.0), true},
      {"across, no corner inside", box(-1.0, 0.4, 2.0, 0.6), true},
      {"touching at an edge", box(1.0, 0.0, 2.0, 1.0), true},
      {"touching at a corner", box(-1.0, -1.0, 0.0, 0.0), true},
      {"to the right", box(1.001, 0.0, 2.0, 1.0), false},
      {"to the left", box(-2.0, 0.0, -0.001, 1.0), false},
      {"above", box(0.0, 1.001, 1.0, 2.0), false},
      {"below", box(0.0, -2.0, 1.0, -0.001), false},
      {"a point", box(0.5, 0.5, 0.5, 0.5), true},
      {"empty", Box2D(), false},
      {"turned around", box(0.8, 0.0, 0.2, 1.0), false},
  };
  for (const auto& [what, other, meets] : cases)
  {
    EXPECT_EQ(culler->isCulled(other), !meets) << what;
  }
  EXPECT_THAT(
      [] {
        return new Culler2D(Matrix44d::scale({1.0, 0.0, 1.0}), Matrix44d());
      },
      testing::ThrowsMessage<std::runtime_error>(
          "Error 2318439298: Matrix inverse does not exist"));
}

} // namespace
