#include "foundation/system/LargePages.h"

#include <dlfcn.h>
#include <mimalloc.h>
#include <sys/prctl.h>

namespace Kelmar::System
{
namespace Detail
{
namespace
{

#if MI_MALLOC_VERSION >= 210
constexpr mi_option_t delayOfGivingBack = mi_option_purge_delay;
#else
constexpr mi_option_t delayOfGivingBack = mi_option_decommit_delay;
#endif

bool arePreferred = false;

// Holds for the whole process. Memory that is in use already keeps its pages.
void allow(bool areAllowed)
{
  prctl(PR_SET_THP_DISABLE, areAllowed ? 0 : 1, 0, 0, 0);
}

} // namespace
} // namespace Detail

void LargePages::prefer()
{
  // Looked up while the program runs, since builds with the sanitizers have another allocator.
  using SetDefault = void (*)(mi_option_t, long);
  const auto setDefault =
      reinterpret_cast<SetDefault>(dlsym(RTLD_DEFAULT, "mi_option_set_default"));
  if (setDefault)
  {
    // What waits for this delay would not be given back by mi_collect either.
    setDefault(Detail::delayOfGivingBack, 0);
  }
  // Who started the process without large pages meant it.
  const bool areForbidden = prctl(PR_GET_THP_DISABLE, 0, 0, 0, 0) == 1;
  if (setDefault && !areForbidden)
  {
    setDefault(mi_option_large_os_pages, 1);
    Detail::arePreferred = true;
    Detail::allow(false);
  }
}

LargePages::LargePages() : _wereAllowed(prctl(PR_GET_THP_DISABLE, 0, 0, 0, 0) == 0)
{
  if (Detail::arePreferred)
  {
    Detail::allow(true);
  }
}

LargePages::~LargePages()
{
  if (Detail::arePreferred)
  {
    Detail::allow(_wereAllowed);
  }
}

} // namespace Kelmar::System
