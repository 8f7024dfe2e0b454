#include "foundation/guard/TerminationReport.h"

#include "foundation/guard/ExceptionHandler.h"
#include "foundation/system/Terminal.h"

#include <cstdlib>

namespace Kelmar::Functions
{
namespace Detail
{
namespace
{

// Global, since a handler gets no argument of ours.
const char* reportId = nullptr;
std::ostream* reportStream = nullptr;
std::terminate_handler handlerBefore = nullptr;

void writeReason()
{
  const std::exception_ptr reason = std::current_exception();
  if (!reason)
  {
    return;
  }
  try
  {
    std::rethrow_exception(reason);
  }
  catch (const std::exception& e)
  {
    Helper::exceptionHandler(reportId, e, *reportStream);
  }
  catch (...)
  {
    Helper::exceptionHandler(reportId, *reportStream);
  }
}

[[noreturn]] void terminate()
{
  try
  {
    writeReason();
  }
  catch (...)
  {
  }
  // It writes to stderr and ends the process.
  handlerBefore();
  std::abort();
}

} // namespace
} // namespace Detail

TerminationReport::TerminationReport(const char* id, std::ostream& out)
{
  Detail::reportId = id;
  Detail::reportStream = &out;
  Detail::handlerBefore = std::set_terminate(Detail::terminate);
}

TerminationReport::~TerminationReport()
{
  std::set_terminate(Detail::handlerBefore);
  Detail::reportStream = nullptr;
}

void TerminationReport::end(const std::exception& reason)
{
  System::tellOnTerminal(reason.what());
  try
  {
    if (Detail::reportStream)
    {
      Helper::exceptionHandler(Detail::reportId, reason, *Detail::reportStream);
    }
  }
  catch (...)
  {
  }
  std::_Exit(EXIT_FAILURE);
}

} // namespace Kelmar::Functions
