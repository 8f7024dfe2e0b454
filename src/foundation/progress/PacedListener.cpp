#include "foundation/progress/PacedListener.h"

namespace Kelmar::Progress
{

void PacedListener::progress(const Stage& stage, double share) noexcept
{
  if (Clock::now() < _next)
  {
    return;
  }
  try
  {
    show(stage, stage.shareOfWhole(share));
  }
  catch (...)
  {
  }
  _next = Clock::now() + std::chrono::milliseconds(50);
}

} // namespace Kelmar::Progress
