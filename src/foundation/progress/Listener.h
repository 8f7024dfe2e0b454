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
  virtual void progress(const Stage& stage, double share) noexcept = 0;
};

} // namespace Kelmar::Progress
