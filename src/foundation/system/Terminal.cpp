#include "foundation/system/Terminal.h"

#include <cstdio>

namespace Kelmar::System
{

void tellOnTerminal(const char* reason) noexcept
{
  std::fprintf(stderr, "orvex-tree-viewer: %s\n", reason ? reason : "unknown failure");
}

} // namespace Kelmar::System
