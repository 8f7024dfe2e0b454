#include "tree/model/TreeMemory.h"

#include "tree/model/Tree.h"

#include <boost/range/iterator_range.hpp>

#include <cstdio>
#include <stdexcept>
#include <vector>

namespace orvex
{
namespace Detail
{
namespace
{

// Measured with trees of a million leaves and names of 7, 100 and 310 bytes, and with a star of as
// many; a twentieth is added. What does not depend on the tree are the buffers of a frame.
constexpr std::size_t bytesOfFrame = std::size_t(40) << 20;
constexpr std::size_t bytesPerNode = 175;
constexpr std::size_t bytesPerLeaf = 170;
// Short names lie within their string. A longer one takes a block of its own, of which some is
// lost.
constexpr std::size_t longestShortName = 15;

std::size_t bytesOfName(const std::string& name)
{
  return name.size() > longestShortName ? name.size() + name.size() / 2 : 0;
}

std::string inGibibytes(std::size_t bytes)
{
  char text[32];
  std::snprintf(text, sizeof text, "%.1f GiB", static_cast<double>(bytes) / (1 << 30));
  return text;
}

} // namespace
} // namespace Detail

std::size_t memoryToShow(const Tree& tree)
{
  std::size_t bytes = Detail::bytesOfFrame;
  std::vector<int> left;
  if (tree.getRootNodeId() >= 0)
  {
    left.push_back(tree.getRootNodeId());
  }
  while (!left.empty())
  {
    const int node = left.back();
    left.pop_back();
    bytes += Detail::bytesPerNode;
    if (tree.isLeaf(node))
    {
      bytes += Detail::bytesPerLeaf + Detail::bytesOfName(tree.getName(node));
    }
    const auto [begin, end] = tree.getChildren(node);
    left.insert(left.end(), begin, end);
  }
  return bytes;
}

void requireMemory(const std::string& work, std::size_t needed,
                   const Kelmar::System::MemoryRoom& room)
{
  if (needed > room.free())
  {
    throw std::runtime_error(work + " takes " + Detail::inGibibytes(needed) + " of memory. " +
                             Detail::inGibibytes(room.free()) + " are free of the " +
                             Detail::inGibibytes(room.limit()) + " " + room.whose() + ".");
  }
}

} // namespace orvex
