#include "terminal/Program.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

namespace orvex::terminal
{

int runProgram(const char* name, int (*run)(int, char**), int argc, char** argv)
{
  try
  {
    return run(argc, argv);
  }
  catch (const std::bad_alloc&)
  {
    std::cerr << name << ": there is not enough memory" << std::endl;
    return EXIT_FAILURE;
  }
  catch (const std::exception& e)
  {
    std::cerr << name << ": " << e.what() << std::endl;
    return EXIT_FAILURE;
  }
}

} // namespace orvex::terminal
