#include "tree/model/TreeSize.h"

#include "tree/model/Tree.h"

#include <boost/range/iterator_range.hpp>

#include <algorithm>
#include <utility>
#include <vector>

namespace orvex
{
namespace Detail
{
namespace
{

// Of the letters that lie within a std::string, and within the string of a label.
constexpr std::size_t longestInTree = 15;
constexpr std::size_t longestInLabel = 22;
// A longer label takes room for so many more.
constexpr std::size_t moreInLabel = 23;

// The allocator has blocks of four sizes between a power of two and the next one. Some of a page is
// left over.
std::size_t blockFor(std::size_t bytes)
{
  std::size_t step = 8;
  while (step * 8 < bytes)
  {
    step *= 2;
  }
  const std::size_t block = (bytes + step - 1) / step * step;
  return block + block / 32;
}

} // namespace
} // namespace Detail

void TreeSize::addName(std::size_t length)
{
  nameBytes += length > Detail::longestInTree ? Detail::blockFor(length + 1) : 0;
}

void TreeSize::addLabel(std::size_t length)
{
  letters += length;
  labelBytes +=
      length > Detail::longestInLabel ? Detail::blockFor(length + 1 + Detail::moreInLabel) : 0;
}

TreeSize sizeToShow(const Tree& tree)
{
  TreeSize size;
  size.nodes = tree.getNumberOfNodes();
  // Each with its level.
  std::vector<std::pair<int, std::size_t>> left;
  if (tree.getRootNodeId() >= 0)
  {
    left.emplace_back(tree.getRootNodeId(), 1);
  }
  while (!left.empty())
  {
    const auto [node, level] = left.back();
    left.pop_back();
    ++size.shownNodes;
    size.levels = std::max(size.levels, level);
    if (tree.isLeaf(node))
    {
      ++size.shownLeaves;
      size.addLabel(tree.getName(node).size());
    }
    for (const int child : boost::make_iterator_range(tree.getChildren(node)))
    {
      left.emplace_back(child, level + 1);
    }
  }
  return size;
}

} // namespace orvex
