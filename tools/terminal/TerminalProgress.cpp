#include "terminal/TerminalProgress.h"

#include <unistd.h>

#include <cstdio>

namespace orvex::terminal
{
namespace Detail
{
namespace
{

// ECMA-48: back to the start of the line, and erase it up to its end.
const char* const emptyLine = "\r\033[K";

} // namespace
} // namespace Detail

TerminalProgress::TerminalProgress()
{
  if (isatty(STDERR_FILENO) == 1)
  {
    _listening.emplace(*this);
  }
}

TerminalProgress::~TerminalProgress()
{
  if (_isShown)
  {
    std::fputs(Detail::emptyLine, stderr);
  }
}

void TerminalProgress::show(const Kelmar::Progress::Stage& stage, double share)
{
  std::fprintf(stderr, "%s%s: %.0f %%", Detail::emptyLine, stage.text, share * 100.0);
  _isShown = true;
}

} // namespace orvex::terminal
