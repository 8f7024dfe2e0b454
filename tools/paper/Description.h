#pragma once

#include <string>

namespace orvex::paper
{

/// What a document says of itself, in UTF-8.
struct Description
{
  std::string title;
  /// The name of the tree's file, without its folder.
  std::string source;
};

/// The program, as documents name who made them.
constexpr const char* creator = "orvex-snapshot of Orvex Tree Viewer";

} // namespace orvex::paper
