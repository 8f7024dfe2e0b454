#include "foundation/system/Terminal.h"

#include <cerrno>
#include <cstdio>

namespace Kelmar::System
{

void tellOnTerminal(const char* text) noexcept
{
  std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, text ? text : "unknown failure");
}

} // namespace Kelmar::System
