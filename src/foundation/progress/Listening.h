#pragma once

#include "foundation/progress/Listener.h"

#include <boost/core/noncopyable.hpp>

namespace Kelmar::Progress
{

/// Until the end of the scope, a listener hears of all work of this thread. Then the one before, if
/// any, hears of it again. At first nobody does.
class Listening : private boost::noncopyable
{
public:
  /// \param listener  must outlive the object
  explicit Listening(Listener& listener);
  ~Listening();

  /// Who hears of this thread's work now; null if nobody does.
  static Listener* listener();

private:
  Listener* _before;
};

} // namespace Kelmar::Progress
