#include "tree/newick/NodeCount.h"

#include <algorithm>

namespace orvex
{
namespace Detail
{
namespace
{

struct Count
{
  std::size_t opened = 0;
  std::size_t commas = 0;
  std::size_t trees = 0;
  std::size_t depth = 0;
  std::size_t deepest = 0;
  // Those before the last tree.
  std::size_t openedBefore = 0;
  std::size_t commasBefore = 0;
};

void countEach(std::string_view text, Count& count)
{
  for (const char c : text)
  {
    if (c == '(' && count.depth == 0)
    {
      ++count.trees;
      count.openedBefore = count.opened;
      count.commasBefore = count.commas;
    }
    count.opened += c == '(' ? 1 : 0;
    count.commas += c == ',' ? 1 : 0;
    count.depth += c == '(' ? 1 : 0;
    count.depth -= c == ')' ? 1 : 0;
  }
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

// Few blocks have so many ")" that a tree may end in them.
Count countAll(std::string_view text)
{
  constexpr std::size_t blockSize = 128;
  Count all;
  for (std::size_t begin = 0; begin < text.size(); begin += blockSize)
  {
    const std::string_view block = text.substr(begin, blockSize);
    const std::size_t closed = count(block, ')');
    all.deepest = std::max(all.deepest, all.depth);
    if (all.depth <= closed)
    {
      countEach(block, all);
      continue;
    }
    const std::size_t opened = count(block, '(');
    all.opened += opened;
    all.commas += count(block, ',');
    all.depth += opened - closed;
  }
  return all;
}

/// The names of some leaves.
struct Sample
{
  std::size_t leaves = 0;
  TreeSize size;
};

// The leaves whose text lies wholly within a piece: behind a "(" or ",", up to a "," or ")".
void addLeaves(std::string_view piece, Sample& sample)
{
  constexpr const char* structure = "(),";
  std::size_t begin = piece.find_first_of(structure);
  while (begin < piece.size())
  {
    const std::size_t end = piece.find_first_of(structure, begin + 1);
    if (end == std::string_view::npos)
    {
      return;
    }
    if (piece[begin] != ')' && piece[end] != '(')
    {
      const std::string_view item = piece.substr(begin + 1, end - begin - 1);
      const std::size_t length = std::min(item.find(':'), item.size());
      sample.size.addName(length);
      sample.size.addLabel(length);
      ++sample.leaves;
    }
    begin = end;
  }
}

Sample takeSample(std::string_view text)
{
  constexpr std::size_t pieces = 64;
  constexpr std::size_t pieceSize = 16384;
  Sample sample;
  const std::size_t step = std::max(text.size() / pieces, pieceSize);
  for (std::size_t begin = 0; begin < text.size(); begin += step)
  {
    addLeaves(text.substr(begin, pieceSize), sample);
  }
  return sample;
}

std::size_t scaled(std::size_t bytes, std::size_t from, std::size_t to)
{
  return static_cast<std::size_t>(static_cast<double>(bytes) / static_cast<double>(from) *
                                  static_cast<double>(to));
}

} // namespace
} // namespace Detail

TreeSize sizeOfNewick(std::string_view text)
{
  const Detail::Count count = Detail::countAll(text);
  TreeSize size;
  size.leaves = count.commas + count.trees;
  size.nodes = count.opened + size.leaves;
  size.shownLeaves = count.trees == 0 ? 0 : count.commas - count.commasBefore + 1;
  size.shownNodes = count.opened - count.openedBefore + size.shownLeaves;
  size.levels = count.deepest;
  const Detail::Sample sample = Detail::takeSample(text);
  if (sample.leaves > 0)
  {
    size.nameBytes = Detail::scaled(sample.size.nameBytes, sample.leaves, size.leaves);
    size.letters = Detail::scaled(sample.size.letters, sample.leaves, size.shownLeaves);
    size.labelBytes = Detail::scaled(sample.size.labelBytes, sample.leaves, size.shownLeaves);
  }
  return size;
}

} // namespace orvex
