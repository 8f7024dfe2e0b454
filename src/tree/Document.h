#pragma once

#include "foundation/counted/Referenced.h"

#include <boost/shared_ptr.hpp>

#include <string>

namespace orvex
{

class Tree;

/// The open document: owns the current tree and chooses how one is loaded. It exists only while a
/// tree is being opened; the tree itself is shared. A load that fails leaves the earlier tree. A
/// tree that can't be shown, as it is too deep or too large, is a failure to load it.
class Document : public Kelmar::Base::Referenced
{
public:
  /// Loads a tree from a file, by its extension in any case: ".tre" and ".nwk" are Newick. Any
  /// other extension changes nothing. A Newick file without a tree leaves the document without one.
  /// \throws what NewickReader throws, and std::runtime_error for a tree that can't be shown
  void read(const std::string& filename);

  /// Loads a tree from the tree service and waits for it. Replaces the tree only on success.
  /// \throws what Reader throws, and std::runtime_error for a tree that can't be shown
  void loadFromHalvane(int id);

  /// May be null.
  boost::shared_ptr<Tree> getTree() const { return _tree; }

private:
  /// The end of every load.
  void _take(boost::shared_ptr<Tree> tree);

  boost::shared_ptr<Tree> _tree;
};

} // namespace orvex
