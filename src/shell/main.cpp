#include "foundation/guard/ExceptionHandler.h"
#include "foundation/guard/TerminationReport.h"
#include "foundation/system/LargePages.h"
#include "foundation/system/StackLimit.h"
#include "foundation/system/Terminal.h"
#include "shell/Program.h"

#include <cstdlib>
#include <fstream>

int main(int argc, char** argv)
try
{
  using Kelmar::Functions::Helper::exceptionHandler;
  Kelmar::System::LargePages::prefer();
  Kelmar::System::raiseStackLimit();
  std::ofstream failure("exception.txt", std::ios::out | std::ios::trunc);
  const Kelmar::Functions::TerminationReport report("1630567380", failure);
  try
  {
    const int result = Brevan::Program::run(argc, argv);
    failure.close();
    return result;
  }
  catch (const std::exception& e)
  {
    exceptionHandler("1630567380", e, failure);
    Kelmar::System::tellOnTerminal(e.what());
  }
  catch (...)
  {
    exceptionHandler("1630567380", failure);
    Kelmar::System::tellOnTerminal(nullptr);
  }
  return EXIT_FAILURE;
}
catch (...) // of the report itself
{
  return EXIT_FAILURE;
}
