#include "shell/EndSignals.h"

#include <QApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
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
  sigfillset(&action.sa_mask);
  for (const int signal : endSignals)
  {
    if (!isIgnored(signal))
    {
      sigaction(signal, &action, nullptr);
    }
  }
}

// Global, since a handler gets no argument of ours.
volatile std::sig_atomic_t handlerEnd = -1;
// When the first signal came, in milliseconds; 0 before.
std::int64_t first = 0;

// Signals so close together are one request: a terminal that closes sends two, and so does
// `timeout`.
constexpr std::int64_t together = 100;

std::int64_t now()
{
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return std::int64_t(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
}

// It may interrupt any other code, so it only leaves a byte for the event loop. If that does not
// come to it, the next signal ends the process, as it would without this handler.
void handle(int signal)
{
  const int before = errno;
  if (first == 0)
  {
    first = now();
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(handlerEnd, &byte, 1);
  }
  else if (now() - first > together)
  {
    handleBy(SIG_DFL);
    raise(signal); // it waits until this function returns
  }
  errno = before;
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
  Detail::first = 0;
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
