#pragma once

#include <exception>
#include <iosfwd>

namespace Kelmar::Functions::Helper
{

/// Reports an exception that was caught: writes the line "Error <id>: <text>" and flushes. The line
/// is written with a single insertion, so that the lines of two reports do not mix;
/// in pieces if there is no memory for the whole line.
///
/// \param id  ten decimal digits that belong to the place that reports; for null the function uses
///            a number of its own
/// \throws what the stream throws
void exceptionHandler(const char* id, std::ostream& out);
void exceptionHandler(const char* id, const std::exception& e, std::ostream& out);

} // namespace Kelmar::Functions::Helper
