#include "terminal/Program.h"

#include <cstdlib>
#include <exception>
#include <iostream>

namespace orvex::terminal
{

int runProgram(const char* name, int (*run)(int, char**), int argc, char** argv)
{
  try
  {
    return run(argc, argv);
  }
  catch (const std::exception& e)
  {
    std::cerr << name << ": " << e.what() << std::endl;
    return EXIT_FAILURE;
  }
}

} // namespace orvex::terminal
