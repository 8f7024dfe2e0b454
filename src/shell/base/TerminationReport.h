#pragma once

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
};

} // namespace Kelmar::Functions
