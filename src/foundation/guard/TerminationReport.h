#pragma once

#include <exception>
#include <iosfwd>

namespace Kelmar::Functions
{

/// In its lifetime the reason is written where an exception ends the process because nothing may
/// catch it: a reference count is misused in the destructor of boost::intrusive_ptr, for example.
/// One at a time.
class TerminationReport
{
public:
  /// \param id   as exceptionHandler has it
  /// \param out  where the line goes; must outlive this object
  TerminationReport(const char* id, std::ostream& out);
  ~TerminationReport();
  TerminationReport(const TerminationReport&) = delete;
  TerminationReport& operator=(const TerminationReport&) = delete;

  /// For where an exception can't leave another library's code: reports a reason to the stream of
  /// the object that is alive, and on the terminal, and ends the process with exit code 1.
  [[noreturn]] static void end(const std::exception& reason);
};

} // namespace Kelmar::Functions
