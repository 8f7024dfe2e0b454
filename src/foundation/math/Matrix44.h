#pragma once

#include "foundation/math/ErrorPolicy.h"
#include "foundation/math/Vector2.h"
#include "foundation/math/Vector3.h"
#include "foundation/math/Vector4.h"

#include <array>

namespace Kelmar::Math
{

/// A 4 by 4 matrix in the storage order of OpenGL: row r, column c is element r + 4 * c, so the
/// translation stands at 12, 13 and 14. The identity at first. \p Policy checks each index.
template <class T, class Index, class Policy>
class Matrix44
{
public:
  using Vector = Vector3<T, Index, Policy>;

  Matrix44() { identity(*this); }

  T& operator[](Index i)
  {
    Policy::template bounds<Index>(1074498986, 16, i);
    return _values[i];
  }

  const T& operator[](Index i) const
  {
    Policy::template bounds<Index>(1074498987, 16, i);
    return _values[i];
  }

  T& operator()(Index row, Index column) { return (*this)[row + 4 * column]; }
  const T& operator()(Index row, Index column) const { return (*this)[row + 4 * column]; }

  /// The sixteen elements, for OpenGL.
  const T* data() const { return _values.data(); }

  template <class M>
  static void identity(M& m)
  {
    for (Index i = 0; i < 16; ++i)
    {
      m[i] = (i % 5 == 0) ? T(1) : T(0);
    }
  }

  static Matrix44 translation(Vector by)
  {
    Matrix44 m;
    m[12] = by[0];
    m[13] = by[1];
    m[14] = by[2];
    return m;
  }

  static Matrix44 scale(Vector by)
  {
    Matrix44 m;
    m[0] = by[0];
    m[5] = by[1];
    m[10] = by[2];
    return m;
  }

  /// The orthographic projection of glOrtho.
  static Matrix44 orthographic(T left, T right, T bottom, T top, T near, T far)
  {
    Matrix44 m;
    m[0] = 2 / (right - left);
    m[5] = 2 / (top - bottom);
    m[10] = -2 / (far - near);
    m[12] = -(right + left) / (right - left);
    m[13] = -(top + bottom) / (top - bottom);
    m[14] = -(far + near) / (far - near);
    return m;
  }

  /// c = a * b. \p c is written while the others are read, so it must be a third object.
  template <class A, class B, class C>
  static void multiply(const A& a, const B& b, C& c)
  {
    for (Index row = 0; row < 4; ++row)
    {
      for (Index column = 0; column < 4; ++column)
      {
        T sum = a(row, 0) * b(0, column);
        for (Index k = 1; k < 4; ++k)
        {
          sum += a(row, k) * b(k, column);
        }
        c(row, column) = sum;
      }
    }
  }

  /// Inverts by cofactors.
  /// \return false, with \p result left alone, if the determinant is exactly zero
  bool inverse(Matrix44& result) const
  {
    const Matrix44& m = *this;
    const T determinant =
        m(0, 0) * _determinant3x3(1, 2, 3, 1, 2, 3) - m(1, 0) * _determinant3x3(0, 2, 3, 1, 2, 3) +
        m(2, 0) * _determinant3x3(0, 1, 3, 1, 2, 3) - m(3, 0) * _determinant3x3(0, 1, 2, 1, 2, 3);
    if (determinant == T(0))
    {
      return false;
    }
    const T factor = T(1) / determinant;
    for (Index r = 0; r < 4; ++r)
    {
      for (Index c = 0; c < 4; ++c)
      {
        const T cofactor = _cofactor(r, c);
        result(c, r) = cofactor * factor; // transposed
      }
    }
    return true;
  }

  /// Inverts in place.
  /// \return false, with this matrix left alone, if there is no inverse
  bool invert()
  {
    Matrix44 result;
    if (!inverse(result))
    {
      return false;
    }
    *this = result;
    return true;
  }

private:
  T _determinant3x3(Index r0, Index r1, Index r2, Index c0, Index c1, Index c2) const
  {
    const Matrix44& a = *this;
    return a(r0, c0) * (a(r1, c1) * a(r2, c2) - a(r1, c2) * a(r2, c1)) -
           a(r0, c1) * (a(r1, c0) * a(r2, c2) - a(r1, c2) * a(r2, c0)) +
           a(r0, c2) * (a(r1, c0) * a(r2, c1) - a(r1, c1) * a(r2, c0));
  }

  T _cofactor(Index row, Index column) const
  {
    const auto others = [](Index i)
    {
      return std::array<Index, 3>{i > 0 ? Index(0) : Index(1), i > 1 ? Index(1) : Index(2),
                                  i > 2 ? Index(2) : Index(3)};
    };
    const std::array<Index, 3> r = others(row);
    const std::array<Index, 3> c = others(column);
    const T minor = _determinant3x3(r[0], r[1], r[2], c[0], c[1], c[2]);
    return (row + column) % 2 == 0 ? minor : -minor;
  }

  std::array<T, 16> _values;
};

template <class T, class Index, class Policy>
Matrix44<T, Index, Policy> operator*(const Matrix44<T, Index, Policy>& a,
                                     const Matrix44<T, Index, Policy>& b)
{
  Matrix44<T, Index, Policy> c;
  Matrix44<T, Index, Policy>::multiply(a, b, c);
  return c;
}

/// The point \p v, with w = 1, through the matrix, divided by the resulting w.
template <class T, class Index, class Policy>
Vector3<T, Index, Policy> operator*(const Matrix44<T, Index, Policy>& m,
                                    const Vector3<T, Index, Policy>& v)
{
  Vector4<T, Index, Policy> work;
  work[3] = T(1) / (m[3] * v[0] + m[7] * v[1] + m[11] * v[2] + m[15]);
  for (Index i = 3; i-- > 0;)
  {
    work[i] = (m[i] * v[0] + m[i + 4] * v[1] + m[i + 8] * v[2] + m[i + 12]) * work[3];
  }
  return {work[0], work[1], work[2]};
}

using Matrix44d = Matrix44<double, unsigned int, ErrorPolicy>;
using Vector2d = Vector2<double, unsigned int, ErrorPolicy>;
using Vector3d = Vector3<double, unsigned int, ErrorPolicy>;
using Vector4f = Vector4<float, unsigned int, ErrorPolicy>;

} // namespace Kelmar::Math
