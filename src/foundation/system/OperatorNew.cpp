// The operators new and delete of the programs: memory of malloc, so of mimalloc where a program
// has it, and std::bad_alloc where there is none. Linked into a program, they replace those of all
// its shared libraries. mimalloc's own end the program, since Debian builds it as C.

#include <algorithm>
#include <cstdlib>
#include <new>

namespace Kelmar::System::Detail
{
namespace
{

/// Asks again and again, as the standard wants, while the new handler may free some memory.
template <class Allocate>
void* allocate(Allocate take)
{
  while (true)
  {
    if (void* const memory = take())
    {
      return memory;
    }
    const std::new_handler handler = std::get_new_handler();
    if (!handler)
    {
      throw std::bad_alloc();
    }
    handler();
  }
}

void* allocateAligned(std::size_t size, std::align_val_t alignment)
{
  const auto bytes = std::max(static_cast<std::size_t>(alignment), sizeof(void*));
  return allocate(
      [=]
      {
        void* memory = nullptr;
        return posix_memalign(&memory, bytes, size) == 0 ? memory : nullptr;
      });
}

template <class Allocate>
void* orNull(Allocate take) noexcept
{
  try
  {
    return take();
  }
  catch (...) // also what the new handler throws
  {
    return nullptr;
  }
}

} // namespace
} // namespace Kelmar::System::Detail

using Kelmar::System::Detail::allocate;
using Kelmar::System::Detail::allocateAligned;
using Kelmar::System::Detail::orNull;

void* operator new(std::size_t size)
{
  return allocate([=] { return std::malloc(std::max(size, std::size_t(1))); });
}

void* operator new(std::size_t size, std::align_val_t alignment)
{
  return allocateAligned(std::max(size, std::size_t(1)), alignment);
}

// All other forms in terms of these. libstdc++'s are the same, but those of an allocator or a
// sanitizer would come first.

void* operator new[](std::size_t size)
{
  return operator new(size);
}

void* operator new[](std::size_t size, std::align_val_t alignment)
{
  return operator new(size, alignment);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
  return orNull([=] { return operator new(size); });
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
  return orNull([=] { return operator new(size); });
}

void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
  return orNull([=] { return operator new(size, alignment); });
}

void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
  return orNull([=] { return operator new(size, alignment); });
}

void operator delete(void* memory) noexcept
{
  std::free(memory);
}

void operator delete[](void* memory) noexcept
{
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
  std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
  std::free(memory);
}

void operator delete(void* memory, std::align_val_t) noexcept
{
  std::free(memory);
}

void operator delete[](void* memory, std::align_val_t) noexcept
{
  std::free(memory);
}

void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
  std::free(memory);
}

void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept
{
  std::free(memory);
}
