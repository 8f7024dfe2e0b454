#pragma once

namespace Brevan
{

/// Runs the application: opens the log file, shows the main window and runs the event loop.
class Program
{
public:
  Program() = delete;

  /// \return the exit code of the event loop, for the process
  /// \throws what prevents the start; all that was set up until then is undone first
  static int run(int argc, char** argv);
};

} // namespace Brevan
