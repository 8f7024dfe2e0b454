#include "tree/model/TreeDepth.h"

#include "foundation/system/StackLimit.h"
#include "tree/model/Tree.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orvex
{

unsigned int depthOfTree(const Tree& tree)
{
  unsigned int deepest = 0;
  std::vector<std::pair<int, unsigned int>> open;
  if (tree.getRootNodeId() >= 0)
  {
    open.emplace_back(tree.getRootNodeId(), 0);
  }
  while (!open.empty())
  {
    const auto [id, depth] = open.back();
    open.pop_back();
    deepest = std::max(deepest, depth);
    for (auto [child, end] = tree.getChildren(id); child != end; ++child)
    {
      open.emplace_back(*child, depth + 1);
    }
  }
  return deepest;
}

void requireRoomForDepth(unsigned int depth, std::size_t bytesPerLevel)
{
  const auto most = static_cast<unsigned int>(Kelmar::System::stackRoom() / bytesPerLevel);
  if (depth > most)
  {
    throw std::runtime_error("The tree is " + std::to_string(depth) + " levels deep. At most " +
                             std::to_string(most) + " levels can be shown.");
  }
}

} // namespace orvex
