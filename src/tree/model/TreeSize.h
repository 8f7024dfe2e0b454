#pragma once

#include <cstddef>

namespace orvex
{

class Tree;

/// What of a tree decides how much memory it takes.
struct TreeSize
{
  /// All, also those that the root does not reach: of a file with several trees, those of the
  /// earlier ones.
  std::size_t nodes = 0;
  std::size_t leaves = 0;
  /// Those that the root reaches, which alone are shown.
  std::size_t shownNodes = 0;
  std::size_t shownLeaves = 0;
  /// On the longest way from the root down.
  std::size_t levels = 0;
  /// Of the names of those leaves.
  std::size_t letters = 0;
  /// Bytes of names that are too long for their string and take a block of memory of their own: in
  /// the tree, and once more as labels.
  std::size_t nameBytes = 0;
  std::size_t labelBytes = 0;

  void addName(std::size_t length);
  void addLabel(std::size_t length);
};

/// Goes once over what the root reaches. Leaves and names of all the tree are not counted, since
/// that has its memory already.
TreeSize sizeToShow(const Tree& tree);

} // namespace orvex
