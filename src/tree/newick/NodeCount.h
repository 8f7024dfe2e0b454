#pragma once

#include "tree/model/TreeSize.h"

#include <string_view>

namespace orvex
{

/// The nodes that a Newick text becomes: each "(" is a node, and each item that is none is a leaf.
/// A group has one item more than it has commas, and in each tree one group is no item. The root
/// reaches those of the last tree. The levels are those of the deepest tree, but for some. The
/// bytes of names are told from samples of the text, as it would take long to read all of them
/// twice.
TreeSize sizeOfNewick(std::string_view text);

} // namespace orvex
