#pragma once

#include <cstddef>

namespace orvex
{

/// A place in a text, as editors show it: line, and byte of that line, both counted from 1.
struct TextPlace
{
  std::size_t line = 1;
  std::size_t column = 1;
};

} // namespace orvex
