#pragma once

#include "foundation/progress/Stage.h"

#include <boost/core/noncopyable.hpp>

#include <cstddef>

namespace Kelmar::Progress
{

/// A work of known size, which is a stage or a part of one. Reports to the listener of its thread
/// at the start, then at most some 400 times if it is not slow, and at the end if no exception ends
/// it. If nobody listens when it starts, it reports nothing, and a unit costs an addition and a
/// comparison.
///
/// The constructor, done and doneSlowly throw Stopped when the listener does.
class Work : private boost::noncopyable
{
public:
  /// \param units       how many there are; more do no harm
  /// \param begin, end  which part of the stage it is, from 0 to 1
  Work(const Stage& stage, std::size_t units, double begin = 0.0, double end = 1.0);
  ~Work();

  /// So many units more are done.
  void done(std::size_t units = 1)
  {
    _done += units;
    if (_done >= _next)
    {
      _report();
    }
  }
  /// The same where each unit may be long in coming: reports each time.
  void doneSlowly(std::size_t units)
  {
    _done += units;
    _report();
  }

private:
  void _report();
  void _tell(double share) const;

  Stage _stage;
  std::size_t _units;
  double _begin;
  double _end;
  std::size_t _done = 0;
  bool _isHeard;
  // With so many units done the next report is due.
  std::size_t _next;
  int _exceptions;
};

} // namespace Kelmar::Progress
