#include "FailingAllocator.h"

#include <dlfcn.h>

#include <cstdlib>
#include <new>

namespace
{

thread_local struct
{
  bool armed, failed, everAfter;
  long left;
  std::size_t leastSize;
} plan{};

bool isOurs(void* caller)
{
  Dl_info theirs{};
  Dl_info ours{};
  return dladdr(caller, &theirs) != 0 && dladdr(reinterpret_cast<void*>(&isOurs), &ours) != 0 &&
         theirs.dli_fbase == ours.dli_fbase;
}

bool refuses(std::size_t size, void* caller)
{
  if (!plan.armed || size < plan.leastSize || (plan.leastSize > 0 && !isOurs(caller)) ||
      plan.left-- > 0)
  {
    return false;
  }
  plan.armed = plan.everAfter;
  return plan.failed = true;
}

} // namespace

FailingAllocator::FailingAllocator(long n, bool everAfter, std::size_t leastSize)
{
  plan = {true, false, everAfter, n, leastSize};
}

FailingAllocator::~FailingAllocator()
{
  plan.armed = false;
}

bool allocatorFailed()
{
  return plan.failed;
}

void* operator new(std::size_t size)
{
  void* memory = refuses(size, __builtin_return_address(0)) ? nullptr : std::malloc(size + 1);
  return memory ? memory : throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
  return std::malloc(size + 1);
}

void operator delete(void* memory) noexcept
{
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
  std::free(memory);
}
