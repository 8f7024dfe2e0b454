#include "foundation/system/StackLimit.h"

#include <sys/resource.h>

#include <algorithm>

namespace Kelmar::System
{
namespace Detail
{
namespace
{

// For all that is not the recursion: main, the event loop, the OpenGL driver.
constexpr rlim_t reserve = rlim_t(2) << 20;
// Whatever the limit says, the kernel may place other mappings this far below the stack's start.
constexpr rlim_t guaranteedRoom = rlim_t(127) << 20;

} // namespace
} // namespace Detail

void raiseStackLimit()
{
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) != 0)
  {
    return;
  }
  // RLIM_INFINITY is the largest value of its type, so it needs no separate case.
  const rlim_t wanted = std::min(limit.rlim_max, rlim_t(128) << 20);
  if (limit.rlim_cur < wanted)
  {
    limit.rlim_cur = wanted;
    setrlimit(RLIMIT_STACK, &limit);
  }
}

std::size_t stackRoom()
{
  rlimit limit{};
  rlim_t room = Detail::guaranteedRoom;
  if (getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY)
  {
    room = std::min(room, limit.rlim_cur);
  }
  return room - std::min(room, Detail::reserve);
}

} // namespace Kelmar::System
