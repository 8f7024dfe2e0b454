#include "generate/TreeGenerator.h"

#include "foundation/progress/Work.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace orvex::generate
{
namespace Detail
{
namespace
{

using Kelmar::Progress::Work;

constexpr Kelmar::Progress::Stage writing{"Writing the tree", 0.0, 1.0};
constexpr unsigned int mostChildren = 50;
// Which share of the work it takes to choose the tree's shape.
constexpr double shareOfGrowing = 0.3;
// The text is written in pieces of this many bytes.
constexpr std::size_t blockSize = 65536;

constexpr std::array<const char*, 32> syllables{
    "ba",  "cor", "del", "fi",  "gal", "ho",  "lix", "ma",  "nor", "pe", "ra",
    "sil", "to",  "ur",  "ven", "xa",  "ze",  "bra", "ci",  "dro", "em", "fur",
    "ga",  "li",  "mus", "ni",  "or",  "pti", "ru",  "sto", "ta",  "vul"};

void appendDigits(std::string& text, unsigned int value, unsigned int digits)
{
  text.append(digits, '0');
  for (auto digit = text.rbegin(); digits > 0; --digits, ++digit, value /= 10)
  {
    *digit = static_cast<char>('0' + value % 10);
  }
}

} // namespace
} // namespace Detail

TreeShape shapeFromName(const std::string& name)
{
  constexpr std::pair<const char*, TreeShape> shapes[] = {{"random", TreeShape::Random},
                                                          {"balanced", TreeShape::Balanced},
                                                          {"ladder", TreeShape::Ladder},
                                                          {"star", TreeShape::Star},
                                                          {"polytomy", TreeShape::Polytomy}};
  for (const auto& [known, shape] : shapes)
  {
    if (name == known)
    {
      return shape;
    }
  }
  throw std::invalid_argument("'" + name +
                              "' is no shape: random, balanced, ladder, star or polytomy");
}

std::string TreeGenerator::newick(TreeShape shape, unsigned int leaves, bool withLengths)
{
  std::ostringstream out;
  write(out, shape, leaves, withLengths);
  return out.str();
}

void TreeGenerator::write(std::ostream& out, TreeShape shape, unsigned int leaves, bool withLengths)
{
  if (leaves == 0 || leaves > mostLeaves)
  {
    throw std::invalid_argument("a tree has from 1 to " + std::to_string(mostLeaves) + " leaves");
  }
  _write(out, _grow(shape, leaves), withLengths);
}

std::vector<TreeGenerator::Node> TreeGenerator::_grow(TreeShape shape, unsigned int leaves)
{
  std::vector<Node> nodes(1);
  nodes.reserve(std::size_t(2) * leaves);
  std::vector<unsigned int> open{0}; // the present leaves
  open.reserve(leaves);
  Detail::Work work(Detail::writing, leaves, 0.0, Detail::shareOfGrowing);
  do
  {
    const unsigned int count = static_cast<unsigned int>(open.size());
    const unsigned int place = _chooseLeaf(shape, count);
    const unsigned int children = _chooseChildren(shape, leaves - count + 1);
    const unsigned int first = static_cast<unsigned int>(nodes.size());
    nodes[open[place]] = {first, children};
    nodes.resize(nodes.size() + children);
    open[place] = first;
    work.done(children - 1);
    for (unsigned int i = 1; i < children; ++i)
    {
      open.push_back(first + i);
    }
  } while (open.size() < leaves);
  return nodes;
}

unsigned int TreeGenerator::_chooseLeaf(TreeShape shape, unsigned int count)
{
  switch (shape)
  {
  case TreeShape::Balanced:
  {
    // A first child takes its parent's place and the others go to the end, so a level is full
    // whenever the count is a power of two.
    unsigned int full = 1;
    while (full <= count / 2)
    {
      full *= 2;
    }
    return count - full;
  }
  case TreeShape::Ladder:
  case TreeShape::Star:
    return count - 1;
  case TreeShape::Random:
  case TreeShape::Polytomy:
    break;
  }
  return _below(count);
}

unsigned int TreeGenerator::_chooseChildren(TreeShape shape, unsigned int most)
{
  switch (shape)
  {
  case TreeShape::Star:
    return most;
  case TreeShape::Polytomy:
    return std::min(2 + _below(Detail::mostChildren - 1), most);
  case TreeShape::Random:
  case TreeShape::Balanced:
  case TreeShape::Ladder:
    break;
  }
  return std::min(2u, most);
}

void TreeGenerator::_write(std::ostream& out, const std::vector<Node>& nodes, bool withLengths)
{
  std::string text;
  Detail::Work work(Detail::writing, nodes.size(), Detail::shareOfGrowing);
  // A node and which of its children comes next.
  std::vector<std::pair<unsigned int, unsigned int>> open{{0, 0}};
  while (!open.empty() && out)
  {
    auto& [id, next] = open.back();
    const Node& node = nodes[id];
    if (next < node.numberOfChildren)
    {
      text += next == 0 ? '(' : ',';
      open.emplace_back(node.firstChild + next++, 0);
      continue;
    }
    open.pop_back();
    work.done();
    node.numberOfChildren == 0 ? _writeName(text) : text.push_back(')');
    if (withLengths && !open.empty())
    {
      text += ":0.";
      Detail::appendDigits(text, 1 + _below(99'999), 5);
    }
    if (text.size() > Detail::blockSize)
    {
      out << text;
      text.clear();
    }
  }
  out << text << ';';
}

void TreeGenerator::_writeName(std::string& text)
{
  // Five bits choose each syllable, the others the number.
  unsigned int bits = static_cast<unsigned int>(_random());
  const std::size_t start = text.size();
  for (int i = 0; i < 4; ++i, bits >>= 5)
  {
    text += i == 2 ? "_" : "";
    text += Detail::syllables[bits % 32];
  }
  text[start] = static_cast<char>(text[start] - 'a' + 'A');
  Detail::appendDigits(text, bits % 100, 2);
}

} // namespace orvex::generate
