#include "foundation/progress/PacedListener.h"

#include "foundation/progress/Stopped.h"

namespace Kelmar::Progress
{

void PacedListener::progress(const Stage& stage, double share)
{
  if (Clock::now() < _next)
  {
    return;
  }
  try
  {
    show(stage, stage.shareOfWhole(share));
  }
  catch (const Stopped&)
  {
    throw;
  }
  catch (...)
  {
  }
  _next = Clock::now() + std::chrono::milliseconds(50);
}

} // namespace Kelmar::Progress
