#pragma once

#include "foundation/guard/ExceptionHandler.h"

namespace Kelmar::Functions
{

/// Calls a function. An exception of it is reported by one line and goes no further.
/// \param id  as exceptionHandler has it
/// \throws what the stream throws
template <class Function>
void guarded(Function function, const char* id, std::ostream& out)
{
  try
  {
    function();
  }
  catch (const std::exception& e)
  {
    Helper::exceptionHandler(id, e, out);
  }
  catch (...)
  {
    Helper::exceptionHandler(id, out);
  }
}

} // namespace Kelmar::Functions
