#pragma once

#include <string>

namespace orvex
{
class Tree;
}

namespace orvex::service
{

/// A text as a JSON string with its quotes. Bytes that are no UTF-8 become U+FFFD.
std::string toJson(const std::string& text);

/// The answer to a request for a tree: names and children under "root", no branch lengths. Uses no
/// recursion, so the tree may have any depth.
/// \pre the tree has a root
std::string toJson(const Tree& tree);

} // namespace orvex::service
