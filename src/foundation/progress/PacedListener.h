#pragma once

#include "foundation/progress/Listener.h"

#include <chrono>

namespace Kelmar::Progress
{

/// A listener that shows something to a user: not before the work has taken half a second, then
/// twenty times a second at most, and as a share of the whole work.
class PacedListener : public Listener
{
public:
  void progress(const Stage& stage, double share) override;

protected:
  /// \param share  of the whole work, from 0 to 1
  /// \throws Stopped  to end the work. Any other exception is dropped, as what is only shown must
  ///                  not end it
  virtual void show(const Stage& stage, double share) = 0;

private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point _next = Clock::now() + std::chrono::milliseconds(500);
};

} // namespace Kelmar::Progress
