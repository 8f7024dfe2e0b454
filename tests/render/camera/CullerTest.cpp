#include "render/camera/Culler2D.h"
#include "render/layout/Box2D.h"
#include "support/Outcome.h"

using Kelmar::Math::Matrix44d;
using orvex::render::Culler2D;

// A view of exactly the unit square: powers of two keep its edges exact.
const Matrix44d projection = Matrix44d::orthographic(0.0, 64.0, 0.0, 32.0, -1.0, 1.0);

TEST(Culler, CullsWhatTheViewDoesNotShow)
{
  const boost::intrusive_ptr<Culler2D> culler(
      new Culler2D(Matrix44d::scale({64.0, 32.0, 1.0}), projection));
  struct Case
  {
    const char* what;
    orvex::render::Point2D<double> minimum, maximum;
    bool isCulled;
  };
  for (const Case& c :
       {Case{"inside", {.2, .2}, {.4, .4}, false}, Case{"around", {-1, -1}, {2, 2}, false},
        Case{"across, without a corner inside", {-1, .4}, {2, .6}, false},
        Case{"touching an edge", {1, 0}, {2, 1}, false},
        Case{"touching a corner", {-1, -1}, {0, 0}, false},
        Case{"a point", {.5, .5}, {.5, .5}, false}, Case{"to the right", {1.001, 0}, {2, 1}, true},
        Case{"to the left", {-2, 0}, {-.001, 1}, true}, Case{"above", {0, 1.001}, {1, 2}, true},
        Case{"below", {0, -2}, {1, -.001}, true}, Case{"empty", {9, 9}, {-9, -9}, true},
        Case{"turned around", {.8, 0}, {.2, 1}, true}})
  {
    orvex::render::Box2D box;
    box.minimum = c.minimum;
    box.maximum = c.maximum;
    EXPECT_EQ(culler->isCulled(box), c.isCulled) << c.what;
  }
}

TEST(Culler, NeedsAnInverse)
{
  EXPECT_EQ(errorOf(
                [] {
                  new Culler2D(Matrix44d::scale({1.0, 0.0, 1.0}), projection);
                }),
            "Error 2318439298: Matrix inverse does not exist");
}
