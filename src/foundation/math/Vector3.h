#pragma once

#include <array>

namespace Kelmar::Math
{

/// A plain value of three elements, tightly packed; zero at first. \p Policy checks each index.
template <class T, class Index, class Policy>
class Vector3
{
public:
  Vector3() = default;
  Vector3(T x, T y, T z) : _values{{x, y, z}} {}

  T& operator[](Index i)
  {
    Policy::template bounds<Index>(1074499041, 3, i);
    return _values[i];
  }

  const T& operator[](Index i) const
  {
    Policy::template bounds<Index>(1074499042, 3, i);
    return _values[i];
  }

  /// The three elements, for OpenGL.
  const T* data() const { return _values.data(); }

private:
  std::array<T, 3> _values{};
};

} // namespace Kelmar::Math
