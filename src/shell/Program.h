#pragma once

namespace Brevan
{

/// The whole life of the application, from the log file to the event loop.
class Program
{
public:
  Program() = delete;

  /// \return the value of the event loop, for the process's exit code
  /// \throws whatever keeps the application from starting; what was set up is taken down first
  static int run(int argc, char** argv);
};

} // namespace Brevan
