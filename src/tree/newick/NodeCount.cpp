#include "tree/newick/NodeCount.h"

namespace orvex
{
namespace Detail
{
namespace
{

// The number of "(" that begin a tree.
std::size_t countTrees(std::string_view text, std::size_t depth)
{
  std::size_t trees = 0;
  for (const char c : text)
  {
    trees += c == '(' && depth == 0 ? 1 : 0;
    depth += c == '(' ? 1 : 0;
    depth -= c == ')' ? 1 : 0;
  }
  return trees;
}

// How often a character is in a text of at most 255 bytes. A byte counts it, of which compilers
// make wide instructions.
std::size_t count(std::string_view text, char wanted)
{
  unsigned char found = 0;
  for (const char c : text)
  {
    found = static_cast<unsigned char>(found + (c == wanted));
  }
  return found;
}

} // namespace
} // namespace Detail

// Few blocks have so many ")" that a tree may end in them.
std::size_t countNewickNodes(std::string_view text)
{
  constexpr std::size_t blockSize = 128;
  std::size_t nodes = 0;
  std::size_t depth = 0;
  for (std::size_t begin = 0; begin < text.size(); begin += blockSize)
  {
    const std::string_view block = text.substr(begin, blockSize);
    const std::size_t opened = Detail::count(block, '(');
    const std::size_t closed = Detail::count(block, ')');
    nodes += opened + Detail::count(block, ',') +
             (depth > closed ? 0 : Detail::countTrees(block, depth));
    depth += opened - closed;
  }
  return nodes;
}

} // namespace orvex
