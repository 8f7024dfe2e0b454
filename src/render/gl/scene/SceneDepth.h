#pragma once

namespace orvex
{
class Tree;
}

namespace orvex::render::gl
{

/// Refuses a tree that is too deep to be shown: layout, scene building, the walk and the
/// destruction of the scene recurse once for each level. To be called before the layout is made.
/// \throws std::runtime_error  if the stack of the main thread, by its present limit, can't hold it
void requireShallow(const Tree& tree);

} // namespace orvex::render::gl
