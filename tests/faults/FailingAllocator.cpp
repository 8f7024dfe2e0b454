#include "FailingAllocator.h"

#include <dlfcn.h>

#include <cstdlib>
#include <new>

namespace
{

struct Plan
{
  bool armed;
  bool failed;
  FailingAllocator::Mode mode;
  long left;
  std::size_t leastSize;
};
thread_local Plan plan{};

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
  plan.armed = plan.mode == FailingAllocator::FromThereOn;
  plan.failed = true;
  return true;
}

} // namespace

FailingAllocator::FailingAllocator(long n, Mode mode, std::size_t leastSize)
{
  plan = {true, false, mode, n, leastSize};
}

FailingAllocator::~FailingAllocator()
{
  plan.armed = false;
}

bool FailingAllocator::failed()
{
  return plan.failed;
}

void* operator new(std::size_t size)
{
  void* memory =
      refuses(size, __builtin_return_address(0)) ? nullptr : std::malloc(size == 0 ? 1 : size);
  if (!memory)
  {
    throw std::bad_alloc();
  }
  return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
  return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept
{
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
  std::free(memory);
}
