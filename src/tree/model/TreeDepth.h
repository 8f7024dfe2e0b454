#pragma once

namespace orvex
{

class Tree;

/// The number of levels below the root; 0 for a tree without one. Counts without recursion.
unsigned int depthOfTree(const Tree& tree);

/// Refuses a tree that is too deep to be shown, or to be made of the tree service's answer: the
/// reader of such an answer, the layout, and the making, the walk and the end of the scene recurse
/// once for each level.
/// \param depth  number of levels below the root
/// \throws std::runtime_error  if the stack of the main thread, by its present limit, can't hold it
void requireRoomForDepth(unsigned int depth);

} // namespace orvex
