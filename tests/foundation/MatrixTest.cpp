#include "Outcome.h"
#include "foundation/Matrix44.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace
{

using Kelmar::Math::Matrix44d;
using Kelmar::Math::Vector3d;

TEST(Matrix, EveryAccessorChecksItsIndex)
{
  Kelmar::Math::Vector2d v2;
  Vector3d v3;
  Kelmar::Math::Vector4f v4;
  Matrix44d m;
  const Kelmar::Math::Vector2d& c2 = v2;
  const Vector3d& c3 = v3;
  const Matrix44d& cm = m;
  using Access = std::function<void(unsigned int)>; // of the index and those below it
  const std::tuple<const char*, unsigned int, Access> accesses[] = {
      {"1074498984", 2, [&](auto i) { v2[i] = 0; }},
      {"1074498985", 2, [&](auto i) { (void)c2[i]; }},
      {"1074498986", 16, [&](auto i) { m[i] = 0; }},
      {"1074498987", 16, [&](auto i) { (void)cm[i]; }},
      {"1074498986", 4, [&](auto i) { m(3, i) = 0; }},
      {"1074499041", 3, [&](auto i) { v3[i] = 0; }},
      {"1074499042", 3, [&](auto i) { (void)c3[i]; }},
      {"1074499043", 4, [&](auto i) { v4[i] = 0; }}};
  for (const auto& [number, size, access] : accesses)
  {
    EXPECT_EQ(orvex::test::errorOf([&, &access = access, size = size] { access(size - 1); }), "");
    EXPECT_EQ(orvex::test::errorOf([&, &access = access, size = size] { access(size); }),
              "Error " + std::string(number) + ": Index out of range");
  }
}

TEST(Matrix, TransformsAsOpenGLDoes)
{
  const Matrix44d shift = Matrix44d::translation({1.0, 2.0, 3.0});
  const Matrix44d stretch = Matrix44d::scale({2.0, 3.0, 4.0});
  EXPECT_EQ(shift[13], 2.0) << "by columns";
  EXPECT_EQ(((shift * stretch) * Vector3d(1.0, 1.0, 1.0))[2], 7.0);
  EXPECT_EQ(((stretch * shift) * Vector3d(1.0, 1.0, 1.0))[2], 16.0);
  const Matrix44d p = Matrix44d::orthographic(0.0, 900.0, 0.0, 600.0, -10.0, 10.0);
  for (unsigned int i = 0; i < 3; ++i) // the box becomes the cube of the clip space
  {
    EXPECT_DOUBLE_EQ((p * Vector3d(0.0, 0.0, 10.0))[i], -1.0);
    EXPECT_DOUBLE_EQ((p * Vector3d(900.0, 600.0, -10.0))[i], 1.0);
  }
}

TEST(Matrix, InverseTimesMatrixIsTheIdentity)
{
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
  const Matrix44d before = inverse;
  EXPECT_FALSE(Matrix44d::scale({2.0, 0.0, 1.0}).inverse(inverse));
  EXPECT_EQ(inverse[3], before[3]) << "left alone";
  EXPECT_TRUE(Matrix44d::scale({1e-60, 1e-60, 1e-60}).inverse(inverse)) << "only an exact 0 counts";
  EXPECT_DOUBLE_EQ(inverse[0], 1e60);
}

} // namespace
