#pragma once

#include "convert/Source.h"

#include <cstddef>
#include <iosfwd>
#include <string>

namespace orvex::convert
{

/// What a user wants of a file.
struct Request
{
  /// The number of a tree, counted from 1, or its name in NEXUS. Empty for the one that is marked
  /// as the default, or else the first.
  std::string tree;
  /// Whether letters beyond ASCII stay.
  bool keepsLetters = false;
};

/// A tree in the viewer's form, and what did not come along.
struct Conversion
{
  std::string text;
  std::size_t trees = 0;
  std::size_t comments = 0;
  std::size_t changedNames = 0;

  /// One line for the user, without its end; empty if nothing was left out or changed.
  std::string report() const;
};

/// Converts a tree of a text. The whole text is read.
/// \throws BadText
/// \throws std::runtime_error  if there is no such tree, or as Source does
Conversion convert(Source& source, const Request& request);

/// Writes a line for each tree of a text: its number, how many leaves it has and its name, with a
/// "*" in front of the one that is marked as the default; between them tabs. \throws BadText
void list(Source& source, std::ostream& out);

} // namespace orvex::convert
