#pragma once

#include "foundation/progress/Listener.h"
#include "foundation/progress/Listening.h"

#include <optional>

namespace orvex::snapshot
{

/// Until the end of the scope, all work of this thread is a part of a larger one: who listens hears
/// of that.
class PartOfWork : public Kelmar::Progress::Listener
{
public:
  /// \param begin, end  which part it is, from 0 to 1
  PartOfWork(double begin, double end);

  void progress(const Kelmar::Progress::Stage& stage, double share) noexcept override;

private:
  double _begin;
  double _end;
  Listener* _whole;
  std::optional<Kelmar::Progress::Listening> _listening;
};

} // namespace orvex::snapshot
