#include "snapshot/PartOfWork.h"

#include "foundation/progress/Stage.h"

namespace orvex::snapshot
{

using Kelmar::Progress::Listening;

PartOfWork::PartOfWork(double begin, double end)
    : _begin(begin), _end(end), _whole(Listening::listener())
{
  if (_whole)
  {
    _listening.emplace(*this);
  }
}

void PartOfWork::progress(const Kelmar::Progress::Stage& stage, double share) noexcept
{
  const double length = _end - _begin;
  _whole->progress({stage.text, _begin + stage.begin * length, _begin + stage.end * length}, share);
}

} // namespace orvex::snapshot
