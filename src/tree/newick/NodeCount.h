#pragma once

#include <cstddef>
#include <string_view>

namespace orvex
{

/// The number of nodes that a Newick text becomes, over all its trees: each "(" is a node, and each
/// item that is none is a leaf. A group has one item more than it has commas, and in each tree one
/// group is no item.
std::size_t countNewickNodes(std::string_view text);

} // namespace orvex
