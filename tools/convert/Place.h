#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace orvex::convert
{

/// Where a byte stands in a text, both counted from 1; columns in bytes.
struct Place
{
  std::size_t line = 1;
  std::size_t column = 1;
};

/// A text that is no tree of the formats that are read.
class BadText : public std::runtime_error
{
public:
  BadText(const Place& place, const std::string& what)
      : std::runtime_error("line " + std::to_string(place.line) + ", column " +
                           std::to_string(place.column) + ": " + what)
  {
  }
};

} // namespace orvex::convert
