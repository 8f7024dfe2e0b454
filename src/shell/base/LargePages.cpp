#include "shell/base/LargePages.h"

#include <dlfcn.h>
#include <mimalloc.h>

namespace Kelmar::System
{

void preferLargePages()
{
  // Looked up while the program runs, since builds with the sanitizers have another allocator.
  using SetDefault = void (*)(mi_option_t, long);
  const auto setDefault =
      reinterpret_cast<SetDefault>(dlsym(RTLD_DEFAULT, "mi_option_set_default"));
  if (setDefault)
  {
    setDefault(mi_option_large_os_pages, 1);
  }
}

} // namespace Kelmar::System
