#include "shell/EndSignals.h"

#include <QApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace Brevan
{
namespace Detail
{
namespace
{

constexpr std::array<int, 3> endSignals{SIGTERM, SIGINT, SIGHUP};

// Global, since a handler gets no argument of ours.
volatile std::sig_atomic_t handlerEnd = -1;

// It may interrupt any other code, so it only leaves a byte for the event loop.
void handle(int)
{
  const int before = errno;
  const char byte = 0;
  // If the pipe is full, the event loop has enough to read.
  [[maybe_unused]] const ssize_t written = write(handlerEnd, &byte, 1);
  errno = before;
}

// nohup lets a program start so, for it to outlive its terminal; so does a script that starts one
// in the background, for it to outlive a Ctrl+C.
bool isIgnored(int signal)
{
  struct sigaction now = {};
  return sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

void handleBy(void (*handler)(int))
{
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : endSignals)
  {
    if (!isIgnored(signal))
    {
      sigaction(signal, &action, nullptr);
    }
  }
}

} // namespace
} // namespace Detail

EndSignals::EndSignals()
{
  if (pipe2(_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
  {
    throw std::system_error(errno, std::generic_category(), "no pipe for signals");
  }
  _notifier = std::make_unique<QSocketNotifier>(_pipe[0], QSocketNotifier::Read);
  QObject::connect(_notifier.get(), &QSocketNotifier::activated,
                   [this]
                   {
                     char bytes[64];
                     [[maybe_unused]] const ssize_t taken = read(_pipe[0], bytes, sizeof bytes);
                     QApplication::closeAllWindows();
                   });
  Detail::handlerEnd = _pipe[1];
  Detail::handleBy(Detail::handle);
}

EndSignals::~EndSignals()
{
  Detail::handleBy(SIG_DFL);
  _notifier.reset();
  close(_pipe[0]);
  close(_pipe[1]);
}

} // namespace Brevan
