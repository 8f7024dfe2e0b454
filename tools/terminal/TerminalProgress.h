#pragma once

#include "foundation/progress/Listening.h"
#include "foundation/progress/PacedListener.h"

#include <optional>

namespace orvex::terminal
{

/// Until the end of the scope, shows on stderr in one line how far the work of this thread is, if
/// that is a terminal. At the end the line is empty again. Anywhere else it shows nothing.
class TerminalProgress : public Kelmar::Progress::PacedListener
{
public:
  TerminalProgress();
  ~TerminalProgress() override;

protected:
  void show(const Kelmar::Progress::Stage& stage, double share) override;

private:
  bool _isShown = false;
  std::optional<Kelmar::Progress::Listening> _listening;
};

} // namespace orvex::terminal
