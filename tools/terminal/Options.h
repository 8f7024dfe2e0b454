#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvex::terminal
{

/// Why getopt_long has just refused an option, for one line that ends a program. It must have been
/// called with opterr at 0 and ":" before the letters.
/// \param found  what it has returned: ":" or "?"
std::string refusedOption(char** argv, int found);

/// What to write if an argument that was taken for an option is the name of a file: a sentence
/// after a blank, empty if it looks like no such name.
std::string hintForFile(const std::string& argument);

/// The whole number that a text is, in decimal digits.
/// \return nothing if it is none, or one beyond the limits, which belong to them
std::optional<std::uint32_t> wholeNumber(const std::string& text, std::uint32_t least,
                                         std::uint32_t most);

} // namespace orvex::terminal
