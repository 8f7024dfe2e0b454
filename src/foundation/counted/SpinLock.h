#pragma once

#include <boost/core/noncopyable.hpp>

#include <atomic>
#include <thread>

namespace Helper
{

/// A lock for a few instructions, to be held by boost::lock_guard. Half as expensive as a mutex
/// where no other thread wants it; a thread that has to wait tries again and again.
class SpinLock : private boost::noncopyable
{
public:
  void lock()
  {
    while (_isHeld.test_and_set(std::memory_order_acquire))
    {
      std::this_thread::yield();
    }
  }
  void unlock() { _isHeld.clear(std::memory_order_release); }

private:
  std::atomic_flag _isHeld = ATOMIC_FLAG_INIT;
};

} // namespace Helper
