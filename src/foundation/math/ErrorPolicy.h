#pragma once

#include <stdexcept>
#include <string>

namespace Kelmar::Math
{

/// The policy of matrices and vectors that checks each index, in every build.
struct ErrorPolicy
{
  /// \param id  fixed number of the accessor, part of the text
  /// \throws std::runtime_error  if \p index is not below \p size
  template <class Index>
  static void bounds(unsigned int id, Index size, Index index)
  {
    if (!(index < size))
    {
      throw std::runtime_error("Error " + std::to_string(id) + ": Index out of range");
    }
  }
};

} // namespace Kelmar::Math
