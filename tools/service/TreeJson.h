#pragma once

#include <string>

namespace orvex
{
class Tree;
}

namespace orvex::service
{

/// A text as a JSON string with its quotes. What is no UTF-8 in it becomes U+FFFD.
std::string toJson(const std::string& text);

/// The answer to a request for a tree: names and children under "root", no branch lengths. Works
/// without recursion, for a tree of any depth.
/// \pre the tree has a root
std::string toJson(const Tree& tree);

} // namespace orvex::service
