#include "tree/TreeDepth.h"

#include "tree/Tree.h"

#include <sys/resource.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orvex
{
namespace Detail
{
namespace
{

// The deepest recursion is the scene's: to walk or to destroy one level of it takes three to six
// frames. Measured in the whole program: 344 bytes a level in an optimised build, 1141 with the
// sanitizers.
#ifdef __has_feature
#define ORVEX_HAS_FEATURE(feature) __has_feature(feature)
#else
#define ORVEX_HAS_FEATURE(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || ORVEX_HAS_FEATURE(address_sanitizer) || !defined(__OPTIMIZE__)
constexpr rlim_t bytesPerLevel = 4096;
#else
constexpr rlim_t bytesPerLevel = 1024;
#endif
// What lies above and below the recursion: main, the event loop, the OpenGL driver.
constexpr rlim_t reserve = rlim_t(2) << 20;
// Whatever the limit says, the kernel may place other mappings this far below the stack's start.
constexpr rlim_t guaranteedRoom = rlim_t(127) << 20;

unsigned int depthBelow(const Tree& tree, int root)
{
  unsigned int deepest = 0;
  std::vector<std::pair<int, unsigned int>> open{{root, 0}};
  while (!open.empty())
  {
    const auto [id, depth] = open.back();
    open.pop_back();
    deepest = std::max(deepest, depth);
    for (auto [child, end] = tree.getChildren(id); child != end; ++child)
    {
      open.emplace_back(static_cast<int>(*child), depth + 1);
    }
  }
  return deepest;
}

} // namespace
} // namespace Detail

unsigned int maximumTreeDepth()
{
  rlimit limit{};
  rlim_t room = Detail::guaranteedRoom;
  if (getrlimit(RLIMIT_STACK, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY)
  {
    room = std::min(room, limit.rlim_cur);
  }
  room -= std::min(room, Detail::reserve);
  return static_cast<unsigned int>(room / Detail::bytesPerLevel);
}

void requireShallow(const Tree& tree)
{
  if (tree.getRootNodeId() < 0)
  {
    return;
  }
  requireShallow(Detail::depthBelow(tree, tree.getRootNodeId()));
}

void requireShallow(unsigned int depth)
{
  const unsigned int most = maximumTreeDepth();
  if (depth > most)
  {
    throw std::runtime_error("The tree is " + std::to_string(depth) + " levels deep. At most " +
                             std::to_string(most) + " levels can be shown.");
  }
}

} // namespace orvex
