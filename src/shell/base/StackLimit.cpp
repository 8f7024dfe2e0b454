#include "shell/base/StackLimit.h"

#include <sys/resource.h>

#include <algorithm>

namespace Kelmar::System
{

void raiseStackLimit()
{
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) != 0)
  {
    return;
  }
  // RLIM_INFINITY is the largest value of its type, so it needs no case of its own.
  const rlim_t wanted = std::min(limit.rlim_max, rlim_t(128) << 20);
  if (limit.rlim_cur < wanted)
  {
    limit.rlim_cur = wanted;
    setrlimit(RLIMIT_STACK, &limit);
  }
}

} // namespace Kelmar::System
