#include "foundation/progress/Work.h"

#include "foundation/progress/Listening.h"
#include "foundation/progress/Stopped.h"

#include <exception>
#include <limits>

namespace Kelmar::Progress
{
namespace Detail
{
namespace
{

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();
constexpr std::size_t mostReports = 400;

} // namespace
} // namespace Detail

Work::Work(const Stage& stage, std::size_t units, double begin, double end)
    : _stage(stage),
      _units(units),
      _begin(begin),
      _end(end),
      _isHeard(Listening::listener() != nullptr),
      _next(_isHeard ? 1 : Detail::never),
      _exceptions(std::uncaught_exceptions())
{
  _tell(_begin);
}

Work::~Work()
{
  if (std::uncaught_exceptions() != _exceptions)
  {
    return;
  }
  try
  {
    _tell(_end);
  }
  catch (const Stopped&) // the next report throws it again
  {
  }
}

void Work::_report()
{
  const bool isWhole = _done >= _units;
  const double share = isWhole ? 1.0 : double(_done) / double(_units);
  _next = isWhole ? Detail::never : _done + _units / Detail::mostReports + 1;
  _tell(_begin + share * (_end - _begin));
}

void Work::_tell(double share) const
{
  Listener* const listener = _isHeard ? Listening::listener() : nullptr;
  if (listener)
  {
    listener->progress(_stage, share);
  }
}

} // namespace Kelmar::Progress
