#pragma once

#include <array>

namespace Kelmar::Math
{

/// A plain value of two elements, tightly packed; zero at first. \p Policy checks each index.
template <class T, class Index, class Policy>
class Vector2
{
public:
  Vector2() = default;
  Vector2(T x, T y) : _values{{x, y}} {}

  T& operator[](Index i)
  {
    Policy::template bounds<Index>(1074498984, 2, i);
    return _values[i];
  }

  const T& operator[](Index i) const
  {
    Policy::template bounds<Index>(1074498985, 2, i);
    return _values[i];
  }

  /// The two elements, for OpenGL.
  const T* data() const { return _values.data(); }

private:
  std::array<T, 2> _values{};
};

} // namespace Kelmar::Math
