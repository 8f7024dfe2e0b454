#include "foundation/guard/ExceptionHandler.h"

#include <new>
#include <ostream>
#include <string>

namespace Kelmar::Functions::Helper
{
namespace Detail
{
namespace
{

void write(const char* id, const char* text, std::ostream& out)
{
  try
  {
    out << std::string("Error ") + id + ": " + text + "\n" << std::flush;
  }
  catch (const std::bad_alloc&)
  {
    // In pieces it needs no memory: often enough it is the lack of it that is to be reported.
    out << "Error " << id << ": " << text << "\n" << std::flush;
  }
}

} // namespace
} // namespace Detail

void exceptionHandler(const char* id, std::ostream& out)
{
  Detail::write(id ? id : "1129262471", "exception generated when calling wrapped function", out);
}

void exceptionHandler(const char* id, const std::exception& e, std::ostream& out)
{
  const char* text = e.what();
  Detail::write(id ? id : "3830268935", text ? text : "", out);
}

} // namespace Kelmar::Functions::Helper
