#include "foundation/math/Matrix44.h"
#include "support/Outcome.h"

using namespace Kelmar::Math;

TEST(Matrix, AndVectorsCheckEachIndex)
{
  Vector2d v2;
  Vector3d v3;
  Vector4f v4;
  Matrix44d m;
  struct Access
  {
    const char *what, *number;
    unsigned int size; // the least index that is refused
    std::function<void(unsigned int)> at;
  };
  for (const Access& access :
       {Access{"Vector2", "1074498984", 2, [&](auto i) { v2[i] = 0; }},
        Access{"const Vector2", "1074498985", 2, [&](auto i) { (void)std::as_const(v2)[i]; }},
        Access{"Matrix44", "1074498986", 16, [&](auto i) { m[i] = 0; }},
        Access{"const Matrix44", "1074498987", 16, [&](auto i) { (void)std::as_const(m)[i]; }},
        Access{"column of a Matrix44", "1074498986", 4, [&](auto i) { m(3, i) = 0; }},
        Access{"Vector3", "1074499041", 3, [&](auto i) { v3[i] = 0; }},
        Access{"const Vector3", "1074499042", 3, [&](auto i) { (void)std::as_const(v3)[i]; }},
        Access{"Vector4", "1074499043", 4, [&](auto i) { v4[i] = 0; }}})
  {
    access.at(access.size - 1);
    EXPECT_EQ(errorOf([&] { access.at(access.size); }),
              std::string("Error ") + access.number + ": Index out of range")
        << access.what;
  }
}

TEST(Matrix, TransformsAsThatOfOpenGLDoes)
{
  const Vector3d corner(900.0, 600.0, -10.0);
  const Matrix44d shift = Matrix44d::translation({1.0, 2.0, 3.0});
  EXPECT_EQ(shift[13], 2.0) << "the storage order is by columns";
  EXPECT_EQ(((shift * Matrix44d::scale({2.0, 3.0, 4.0})) * corner)[2], 4.0 * -10.0 + 3.0);
  EXPECT_EQ((Matrix44d::orthographic(0.0, 900.0, 0.0, 600.0, -10.0, 10.0) * corner)[2], 1.0);
}

TEST(Matrix, TimesItsInverseIsTheIdentity)
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
    Matrix44d inPlace = m;
    ASSERT_TRUE(inPlace.invert());
    const Matrix44d product = inPlace * m;
    for (unsigned int i = 0; i < 16; ++i)
    {
      EXPECT_EQ(inPlace[i], inverse[i]);
      EXPECT_NEAR(product[i], i % 5 == 0 ? 1.0 : 0.0, 1e-12) << "element " << i;
    }
  }
}

TEST(Matrix, HasNoInverseWhereItsDeterminantIsExactlyZero)
{
  Matrix44d inverse = Matrix44d::translation({1.0, 2.0, 3.0});
  EXPECT_FALSE(Matrix44d::scale({2.0, 0.0, 1.0}).inverse(inverse));
  EXPECT_EQ(inverse[13], 2.0) << "left alone";
  Matrix44d flat = Matrix44d::scale({2.0, 0.0, 1.0});
  EXPECT_FALSE(flat.invert());
  EXPECT_EQ(flat[0], 2.0) << "left alone";
  EXPECT_TRUE(Matrix44d::scale({1e-60, 1e-60, 1e-60}).inverse(inverse));
}
