#pragma once

#include "foundation/progress/Stage.h"

#include <boost/core/noncopyable.hpp>

namespace Kelmar::Progress
{

/// Hears how far a work is, while a Listening has it installed.
class Listener : private boost::noncopyable
{
public:
  virtual ~Listener() = default;

  /// \param share  of the stage, from 0 to 1; within a stage it never falls
  /// \throws Stopped  if the work is to end here, and then each time that it is called. Nothing
  /// else
  virtual void progress(const Stage& stage, double share) = 0;
};

} // namespace Kelmar::Progress
