#pragma once

namespace orvex::terminal
{

/// Runs the work of a program. An exception becomes a line on the standard error that begins with
/// the program's name.
/// \return what main is to return
int runProgram(const char* name, int (*run)(int, char**), int argc, char** argv);

} // namespace orvex::terminal
