#include "render/Box2D.h"
#include "render/Culler2D.h"
#include "support/Outcome.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gtest/gtest.h>

#include <sstream>

namespace
{

using Kelmar::Math::Matrix44d;
using orvex::render::Box2D;
using orvex::render::Culler2D;

TEST(Culler, CullsWhatTheViewDoesNotShow)
{
  // A view of exactly the unit square: powers of two keep its edges exact.
  const Matrix44d projection = Matrix44d::orthographic(0.0, 64.0, 0.0, 32.0, -1.0, 1.0);
  const boost::intrusive_ptr<Culler2D> culler(
      new Culler2D(Matrix44d::scale({64.0, 32.0, 1.0}), projection));
  // Inside, around, across with no corner inside, touching at an edge and at a corner, a point;
  // to the right, to the left, above, below, empty, turned around.
  std::istringstream boxes(".2 .2 .4 .4  -1 -1 2 2  -1 .4 2 .6  1 0 2 1  -1 -1 0 0  .5 .5 .5 .5  "
                           "1.001 0 2 1  -2 0 -.001 1  0 1.001 1 2  0 -2 1 -.001  9 9 -9 -9  "
                           ".8 0 .2 1");
  Box2D box;
  for (int i = 0; boxes >> box.minimum.x >> box.minimum.y >> box.maximum.x >> box.maximum.y; ++i)
  {
    EXPECT_EQ(culler->isCulled(box), i >= 6) << "box " << i;
  }
  const Matrix44d flat = Matrix44d::scale({1.0, 0.0, 1.0});
  EXPECT_EQ(orvex::test::errorOf([&] { new Culler2D(flat, projection); }),
            "Error 2318439298: Matrix inverse does not exist");
}

} // namespace
