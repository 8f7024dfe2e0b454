#pragma once

#include <boost/core/noncopyable.hpp>

#include <array>
#include <memory>

class QSocketNotifier;

namespace Brevan
{

/// In its lifetime SIGTERM, SIGINT and SIGHUP close all windows as a user does, when the event loop
/// comes to it. A second one, more than a tenth of a second later, ends the process at once. Those
/// that the process was started to ignore stay ignored. One at a time; needs the application
/// object.
class EndSignals : private boost::noncopyable
{
public:
  /// \throws std::system_error  if the process has no room for a pipe
  EndSignals();
  ~EndSignals();

private:
  // The handler writes to the second end; the event loop reads from the first one.
  std::array<int, 2> _pipe{};
  std::unique_ptr<QSocketNotifier> _notifier;
};

} // namespace Brevan
