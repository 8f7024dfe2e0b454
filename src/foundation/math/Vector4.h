#pragma once

#include <array>

namespace Kelmar::Math
{

/// A plain value of four elements, tightly packed; zero at first. \p Policy checks each index.
template <class T, class Index, class Policy>
class Vector4
{
public:
  Vector4() = default;
  Vector4(T x, T y, T z, T w) : _values{{x, y, z, w}} {}

  T& operator[](Index i)
  {
    Policy::template bounds<Index>(1074499043, 4, i);
    return _values[i];
  }

  /// The four elements, for OpenGL.
  const T* data() const { return _values.data(); }

private:
  std::array<T, 4> _values{};
};

} // namespace Kelmar::Math
