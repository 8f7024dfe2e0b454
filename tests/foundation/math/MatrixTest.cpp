#include "foundation/math/Matrix44.h"
#include "support/Outcome.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace
{

using namespace Kelmar::Math;

TEST(Matrix, EveryAccessorChecksItsIndex)
{
  Vector2d v2;
  Vector3d v3;
  Vector4f v4;
  Matrix44d m;
  using Access = std::function<void(unsigned int)>;
  for (const auto& [number, size, access] : // for indices below the size
       {std::tuple(1074498984, 2u, Access([&](auto i) { v2[i] = 0; })),
        std::tuple(1074498985, 2u, Access([&](auto i) { (void)std::as_const(v2)[i]; })),
        std::tuple(1074498986, 16u, Access([&](auto i) { m[i] = 0; })),
        std::tuple(1074498987, 16u, Access([&](auto i) { (void)std::as_const(m)[i]; })),
        std::tuple(1074498986, 4u, Access([&](auto i) { m(3, i) = 0; })),
        std::tuple(1074499041, 3u, Access([&](auto i) { v3[i] = 0; })),
        std::tuple(1074499042, 3u, Access([&](auto i) { (void)std::as_const(v3)[i]; })),
        std::tuple(1074499043, 4u, Access([&](auto i) { v4[i] = 0; }))})
  {
    access(size - 1);
    EXPECT_EQ(orvex::test::errorOf(std::bind(access, size)),
              "Error " + std::to_string(number) + ": Index out of range");
  }
}

TEST(Matrix, InverseTimesMatrixIsTheIdentity)
{
  const Vector3d corner(900.0, 600.0, -10.0);
  const Matrix44d shift = Matrix44d::translation({1.0, 2.0, 3.0});
  EXPECT_EQ(shift[13], 2.0) << "by columns";
  EXPECT_EQ(((shift * Matrix44d::scale({2.0, 3.0, 4.0})) * corner)[2], 4.0 * -10.0 + 3.0);
  EXPECT_EQ((Matrix44d::orthographic(0.0, 900.0, 0.0, 600.0, -10.0, 10.0) * corner)[2], 1.0);
  std::mt19937 random(20261);
  std::uniform_real_distribution<double> value(-3.0, 3.0);
  Matrix44d m;
  Matrix44d inverse;
  for (int round = 0; round < 200; ++round)
  {
    for (unsigned int i = 0; i < 16; ++i)
    {
      m[i] = value(random) + (i % 5 == 0 ? 8.0 : 0.0); // well conditioned
    }
    ASSERT_TRUE(m.inverse(inverse));
    const Matrix44d product = inverse * m;
    for (unsigned int i = 0; i < 16; ++i)
    {
      EXPECT_NEAR(product[i], i % 5 == 0 ? 1.0 : 0.0, 1e-12) << "element " << i;
    }
  }
  const double before = inverse[3];
  EXPECT_FALSE(Matrix44d::scale({2.0, 0.0, 1.0}).inverse(inverse));
  EXPECT_EQ(inverse[3], before) << "left alone";
  EXPECT_TRUE(Matrix44d::scale({1e-60, 1e-60, 1e-60}).inverse(inverse)) << "only an exact 0 counts";
}

} // namespace
