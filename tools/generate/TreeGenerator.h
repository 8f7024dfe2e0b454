#pragma once

#include <cstdint>
#include <iosfwd>
#include <random>
#include <string>
#include <vector>

namespace orvex::generate
{

enum class TreeShape
{
  Random,   ///< a random leaf divides in two, again and again: the trees of a pure birth process
  Balanced, ///< a level is full before the next one begins
  Ladder,   ///< on every level one leaf, and one node with all other leaves
  Star,     ///< all leaves are children of the root
  Polytomy  ///< a random leaf divides into 2 to 50
};

/// \throws std::invalid_argument  for a word that names no shape
TreeShape shapeFromName(const std::string& name);

/// Generates trees: the same seed gives the same text on every machine. Time and memory are linear
/// in the number of leaves. Uses no recursion, so a tree may have any depth.
class TreeGenerator
{
public:
  static constexpr unsigned int mostLeaves = 100'000'000;

  explicit TreeGenerator(std::uint32_t seed) : _random(seed) {}

  /// A tree in Newick form, closed by a semicolon and no line end. Leaves are named like species;
  /// inner nodes have no name.
  /// \param withLengths  whether every node but the root gets a branch length
  /// \throws std::invalid_argument  for no leaves, or more than mostLeaves
  std::string newick(TreeShape shape, unsigned int leaves, bool withLengths = false);
  /// The same, piece by piece, so that the text is never in memory as a whole. Stops where the
  /// stream fails.
  void write(std::ostream& out, TreeShape shape, unsigned int leaves, bool withLengths);

private:
  /// The children of a node are numbered one after the other.
  struct Node
  {
    unsigned int firstChild = 0;
    unsigned int numberOfChildren = 0;
  };

  std::vector<Node> _grow(TreeShape shape, unsigned int leaves);
  /// \return which of \p count leaves divides next
  unsigned int _chooseLeaf(TreeShape shape, unsigned int count);
  /// \return into how many it divides
  unsigned int _chooseChildren(TreeShape shape, unsigned int most);
  void _write(std::ostream& out, const std::vector<Node>& nodes, bool withLengths);
  void _writeName(std::string& text);
  /// Below \p limit. The distributions of the standard library are not the same on all systems.
  unsigned int _below(unsigned int limit) { return static_cast<unsigned int>(_random() % limit); }

  std::mt19937 _random;
};

} // namespace orvex::generate
