#pragma once

#include "shell/base/ExceptionHandler.h"

#include <iostream>

namespace Kelmar::Functions
{

/// Calls a function whose failure must go no further, as in a destructor. A failure becomes one
/// line on std::cout.
template <class Function>
void noThrow(Function function, const char* id)
{
  try
  {
    function();
  }
  catch (const std::exception& e)
  {
    Helper::exceptionHandler(id, e, std::cout);
  }
  catch (...)
  {
    Helper::exceptionHandler(id, std::cout);
  }
}

} // namespace Kelmar::Functions
