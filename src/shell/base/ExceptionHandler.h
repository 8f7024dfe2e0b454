#pragma once

#include <exception>
#include <iosfwd>

namespace Kelmar::Functions::Helper
{

/// Writes the line of a guard and flushes: "Error ", the identifier, ": " and what is known of the
/// failure. The line goes out in one insertion, so lines of two reports never mix.
///
/// \param id  ten decimal digits fixed for the place that reports; null stands for a number of the
///            function's own
/// What the stream throws is not caught.
void exceptionHandler(const char* id, std::ostream& out);
void exceptionHandler(const char* id, const std::exception& e, std::ostream& out);

} // namespace Kelmar::Functions::Helper
