#include "Outcome.h"
#include "render/Box2D.h"
#include "render/Culler2D.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gtest/gtest.h>

#include <cmath>

namespace
{

using Kelmar::Math::Matrix44d;
using orvex::render::Box2D;
using orvex::render::Culler2D;

void expectBox(const Box2D& box, double x0, double y0, double x1, double y1)
{
  EXPECT_TRUE(box.minimum.x == x0 && box.minimum.y == y0);
  EXPECT_TRUE(box.maximum.x == x1 && box.maximum.y == y1);
}

TEST(Box, GrowsWithWhatIsAdded)
{
  using Point = orvex::render::Point2D<double>;
  Box2D grown;
  EXPECT_FALSE(grown.valid());
  grown.add(Point{2.0, -3.0});
  EXPECT_TRUE(grown.valid());
  grown.add(Point{1.0, 4.0});
  grown.add(Point{std::nan(""), 5.0});
  grown.add(Box2D{{9.0, 0.0}, {8.0, 0.0}}); // not valid
  grown.add(Box2D{{0.0, 0.0}, {1.5, 6.0}});
  expectBox(grown, 0.0, -3.0, 2.0, 6.0);
}

TEST(Culler, CullsWhatTheViewDoesNotShow)
{
  // A view of exactly the unit square: powers of two keep its edges exact.
  const Matrix44d projection = Matrix44d::orthographic(0.0, 64.0, 0.0, 32.0, -1.0, 1.0);
  const boost::intrusive_ptr<Culler2D> culler(
      new Culler2D(Matrix44d::scale({64.0, 32.0, 1.0}), projection));
  expectBox(culler->box(), 0.0, 0.0, 1.0, 1.0);
  // Inside, around, across with no corner inside, touching at an edge and at a corner, a point.
  for (const Box2D& shown :
       {Box2D{{.2, .2}, {.4, .4}}, Box2D{{-1, -1}, {2, 2}}, Box2D{{-1, .4}, {2, .6}},
        Box2D{{1, 0}, {2, 1}}, Box2D{{-1, -1}, {0, 0}}, Box2D{{.5, .5}, {.5, .5}}})
  {
    EXPECT_FALSE(culler->isCulled(shown)) << shown.minimum.x << " " << shown.maximum.x;
  }
  // To the right, to the left, above, below, empty, turned around.
  for (const Box2D& hidden :
       {Box2D{{1.001, 0}, {2, 1}}, Box2D{{-2, 0}, {-.001, 1}}, Box2D{{0, 1.001}, {1, 2}},
        Box2D{{0, -2}, {1, -.001}}, Box2D(), Box2D{{.8, 0}, {.2, 1}}})
  {
    EXPECT_TRUE(culler->isCulled(hidden)) << hidden.minimum.x << " " << hidden.minimum.y;
  }
  EXPECT_EQ(orvex::test::errorOf(
                [] {
                  Culler2D(Matrix44d::scale({1.0, 0.0, 1.0}), Matrix44d());
                }),
            "Error 2318439298: Matrix inverse does not exist");
}

} // namespace
