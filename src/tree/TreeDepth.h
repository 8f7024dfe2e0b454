#pragma once

namespace orvex
{

class Tree;

/// Layout, scene and their destruction recurse once for each level of a tree. This is how many
/// levels the stack of the main thread can hold, by its present limit. Ask after the limit was
/// raised.
unsigned int maximumTreeDepth();

/// Refuses a tree that would overflow the stack, without recursion of its own.
/// \throws std::runtime_error  if the tree under the root is deeper than maximumTreeDepth()
void requireShallow(const Tree& tree);
/// The same for a depth counted elsewhere, in levels below the root.
void requireShallow(unsigned int depth);

} // namespace orvex
