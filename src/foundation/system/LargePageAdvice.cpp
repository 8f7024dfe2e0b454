// Linked into a program, it replaces madvise for its shared libraries. mimalloc 2.0 asks by it for
// large pages. If that succeeds it takes them for pages that can't be given back singly: a segment
// of 32 MiB then stays whole for as long as one block of it is in use, and a few such blocks keep
// hundreds of mebibytes of a tree that was closed. So it has its pages, but hears that it has none.

#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

extern "C" int madvise(void* address, std::size_t length, int advice) noexcept
{
  const long result = syscall(SYS_madvise, address, length, advice);
  if (advice == MADV_HUGEPAGE && result == 0)
  {
    errno = EINVAL;
    return -1;
  }
  return static_cast<int>(result);
}
