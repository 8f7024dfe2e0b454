#include "foundation/system/AllocatorMemory.h"

#include <dlfcn.h>
#include <malloc.h>

namespace Kelmar::System
{

void giveBackMemory()
{
  // Looked up while the program runs, since some programs have another allocator.
  using Collect = void (*)(bool);
  const auto collect = reinterpret_cast<Collect>(dlsym(RTLD_DEFAULT, "mi_collect"));
  if (collect)
  {
    collect(true);
  }
  else
  {
    malloc_trim(0);
  }
}

} // namespace Kelmar::System
