#pragma once

#include "foundation/guard/Guarded.h"

#include <iostream>

namespace Kelmar::Functions
{

/// Calls a function and lets no exception of it out, as a destructor needs. An exception is
/// reported by one line on std::cout. If that can not be written, it is lost.
template <class Function>
void noThrow(Function function, const char* id) noexcept
{
  try
  {
    guarded(function, id, std::cout);
  }
  catch (...)
  {
  }
}

} // namespace Kelmar::Functions
