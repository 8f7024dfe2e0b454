#include "foundation/Matrix44.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace
{

using Kelmar::Math::Matrix44d;
using Kelmar::Math::Vector2d;
using Kelmar::Math::Vector3d;
using Kelmar::Math::Vector4f;

TEST(Matrix, EveryAccessorChecksItsIndex)
{
  struct Access
  {
    const char* text;
    std::function<void()> inside;
    std::function<void()> beyond;
  };
  Vector2d v2;
  Vector3d v3;
  Vector4f v4;
  Matrix44d m;
  const Vector2d& c2 = v2;
  const Vector3d& c3 = v3;
  const Matrix44d& cm = m;
  const Access accesses[] = {
      {"Error 1074498984: Index out of range", [&] { v2[1] = 0; }, [&] { v2[2] = 0; }},
      {"Error 1074498985: Index out of range", [&] { (void)c2[1]; }, [&] { (void)c2[2]; }},
      {"Error 1074498986: Index out of range", [&] { m[15] = 0; }, [&] { m[16] = 0; }},
      {"Error 1074498987: Index out of range", [&] { (void)cm[15]; }, [&] { (void)cm[16]; }},
      {"Error 1074498986: Index out of range", [&] { m(3, 3) = 0; }, [&] { m(0, 4) = 0; }},
      {"Error 1074499041: Index out of range", [&] { v3[2] = 0; }, [&] { v3[3] = 0; }},
      {"Error 1074499042: Index out of range", [&] { (void)c3[2]; }, [&] { (void)c3[3]; }},
      {"Error 1074499043: Index out of range", [&] { v4[3] = 0; }, [&] { v4[4] = 0; }},
  };
  for (const Access& access : accesses)
  {
    SCOPED_TRACE(access.text);
    EXPECT_NO_THROW(access.inside());
    try
    {
      access.beyond();
      ADD_FAILURE() << "no exception";
    }
    catch (const std::runtime_error& e)
    {
      EXPECT_STREQ(e.what(), access.text);
    }
  }
}

TEST(Matrix, StoresAndMultipliesAsOpenGLDoes)
{
  const Matrix44d shift = Matrix44d::translation({1.0, 2.0, 3.0});
  EXPECT_EQ(shift[12], 1.0);
  EXPECT_EQ(shift[13], 2.0);
  EXPECT_EQ(shift[14], 3.0);
  const Matrix44d stretch = Matrix44d::scale({2.0, 3.0, 4.0});

  const Vector3d shiftedLast = (shift * stretch) * Vector3d(1.0, 1.0, 1.0);
  EXPECT_EQ(shiftedLast[0], 3.0);
  EXPECT_EQ(shiftedLast[1], 5.0);
  EXPECT_EQ(shiftedLast[2], 7.0);
  const Vector3d shiftedFirst = (stretch * shift) * Vector3d(1.0, 1.0, 1.0);
  EXPECT_EQ(shiftedFirst[0], 4.0);

  Matrix44d perspective;
  perspective[15] = 2.0;
  EXPECT_EQ((perspective * Vector3d(4.0, 0.0, 0.0))[0], 2.0) << "divided by w";
}

TEST(Matrix, OrthographicProjectionTakesTheBoxToTheClipCube)
{
  const Matrix44d p = Matrix44d::orthographic(0.0, 900.0, 0.0, 600.0, -10.0, 10.0);
  const Vector3d low = p * Vector3d(0.0, 0.0, 10.0);
  const Vector3d high = p * Vector3d(900.0, 600.0, -10.0);
  for (unsigned int i = 0; i < 3; ++i)
  {
    EXPECT_DOUBLE_EQ(low[i], -1.0);
    EXPECT_DOUBLE_EQ(high[i], 1.0);
  }
}

TEST(Matrix, InverseTimesMatrixIsTheIdentity)
{
  const unsigned int seed = 20261;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> value(-3.0, 3.0);
  for (int round = 0; round < 200; ++round)
  {
    Matrix44d m;
    for (unsigned int i = 0; i < 16; ++i)
    {
      m[i] = value(random) + (i % 5 == 0 ? 8.0 : 0.0); // well conditioned
    }
    Matrix44d inverse = m;
    ASSERT_TRUE(inverse.invert());
    const Matrix44d product = inverse * m;
    for (unsigned int i = 0; i < 16; ++i)
    {
      EXPECT_NEAR(product[i], i % 5 == 0 ? 1.0 : 0.0, 1e-12) << "element " << i;
    }
  }
}

TEST(Matrix, WithoutInverseLeavesTheResultAlone)
{
  Matrix44d flat = Matrix44d::scale({2.0, 0.0, 1.0});
  Matrix44d result;
  result[3] = 42.0;
  EXPECT_FALSE(flat.inverse(result));
  EXPECT_EQ(result[3], 42.0);
  EXPECT_FALSE(flat.invert());
  EXPECT_EQ(flat[0], 2.0);

  const Matrix44d tiny = Matrix44d::scale({1e-60, 1e-60, 1e-60});
  EXPECT_TRUE(tiny.inverse(result)) << "no tolerance: only an exact zero counts";
  EXPECT_DOUBLE_EQ(result[0], 1e60);
}

} // namespace
