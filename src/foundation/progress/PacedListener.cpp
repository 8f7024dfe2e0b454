#include "foundation/progress/PacedListener.h"

namespace Kelmar::Progress
{

void PacedListener::progress(Stage stage, double share) noexcept
{
  if (Clock::now() < _next)
  {
    return;
  }
  try
  {
    show(stage, shareOfWhole(stage, share));
  }
  catch (...)
  {
  }
  _next = Clock::now() + std::chrono::milliseconds(50);
}

} // namespace Kelmar::Progress
