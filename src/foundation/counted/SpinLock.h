#pragma once

#include <boost/core/noncopyable.hpp>

#include <atomic>
#include <thread>

namespace Helper
{

/// A lock to be held by boost::lock_guard, half as expensive as a mutex where nobody waits for it.
///
/// The viewer has one thread, so there nobody ever waits; the lock keeps the promise of the counted
/// objects to programs with several. It is held for a few instructions, or while memory for the
/// registry is allocated. Who has to wait lets other threads run and tries again.
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
