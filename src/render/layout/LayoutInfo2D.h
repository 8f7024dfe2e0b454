#pragma once

#include "foundation/counted/Referenced.h"
#include "render/layout/NodeLayoutInfo.h"

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <stdexcept>
#include <vector>

namespace orvex::render
{

/// The result of a layout: a record for each node id of a tree. It exists until the scene is built.
///
/// The records lie in blocks, and a block's memory is free when all its records are released. As
/// nodes are numbered in the order of the file, and the scene is built in that order, the layout
/// goes while the scene comes.
class LayoutInfo2D : public Kelmar::Base::Referenced, private boost::noncopyable
{
public:
  /// Which share of a layout's time it takes to make the records.
  static constexpr double shareOfLayout = 0.3;

  /// Makes the record of each node. A function, since a counted object whose constructor throws
  /// would be reported as one that is deleted without cause.
  /// \throws std::bad_alloc  if there is no memory for them
  /// \throws Kelmar::Progress::Stopped  if the listener wants it
  static boost::intrusive_ptr<LayoutInfo2D> make(unsigned int numberOfNodes);

  /// \return the node's record, owned by this object
  /// \throws std::out_of_range  for an id that is no node
  NodeLayoutInfo& layoutInfoForNode(int node)
  {
    // A negative id becomes an index that is too large for any vector.
    const auto index = static_cast<std::size_t>(node);
    return _blocks.at(index / _blockSize).records.at(index % _blockSize);
  }

  /// Releases the record of a node, once. It must not be asked for again.
  void release(int node);

private:
  LayoutInfo2D() = default;

  static constexpr std::size_t _blockSize = 4096;

  struct Block
  {
    std::vector<NodeLayoutInfo> records;
    std::size_t inUse;
  };

  std::vector<Block> _blocks;
};

} // namespace orvex::render
