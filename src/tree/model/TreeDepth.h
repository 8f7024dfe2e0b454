#pragma once

#include <cstddef>

namespace orvex
{

class Tree;

/// The number of levels below the root; 0 for a tree without one. Counts without recursion.
unsigned int depthOfTree(const Tree& tree);

/// Refuses a depth that would overflow the stack of the main thread.
/// \param depth  number of levels below the root
/// \param bytesPerLevel  what a recursion takes on the stack for each level
/// \throws std::runtime_error  if the stack can't hold so many levels
void requireRoomForDepth(unsigned int depth, std::size_t bytesPerLevel);

} // namespace orvex
