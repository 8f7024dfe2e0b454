#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace Kelmar::System
{

/// The number that a file of the kernel begins with; nothing if there is none.
std::optional<std::size_t> firstNumber(const std::string& file);

/// The number after the first place where a file of the kernel has a word, between blanks or line
/// ends; nothing if there is none.
std::optional<std::size_t> numberAfter(const std::string& file, const std::string& word);

} // namespace Kelmar::System
