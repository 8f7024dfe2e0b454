#include "foundation/guard/ExceptionHandler.h"
#include "foundation/guard/TerminationReport.h"
#include "foundation/system/Environment.h"
#include "foundation/system/LargePages.h"
#include "foundation/system/StackLimit.h"
#include "foundation/system/Terminal.h"
#include "shell/Program.h"

#include <cstdlib>
#include <fstream>
#include <string>

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
    // Without it there is no failure but this one, whose text does not name it.
    Kelmar::System::tellOnTerminal(Kelmar::System::Environment::has("HOME")
                                       ? e.what()
                                       : (std::string(e.what()) + " (HOME is not set)").c_str());
  }
  catch (...)
  {
    exceptionHandler("1630567380", failure);
    Kelmar::System::tellOnTerminal(nullptr);
  }
  return EXIT_FAILURE;
}
catch (...) // exception.txt could not be written
{
  return EXIT_FAILURE;
}
