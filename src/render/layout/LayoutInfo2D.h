#pragma once

#include "foundation/counted/Referenced.h"
#include "render/layout/NodeLayoutInfo.h"

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <vector>

namespace orvex::render
{

/// The result of a layout: a record for each node id of a tree. It exists until the scene is built.
class LayoutInfo2D : public Kelmar::Base::Referenced, private boost::noncopyable
{
public:
  /// Which share of a layout's time it takes to make the records.
  static constexpr double shareOfLayout = 0.5;

  explicit LayoutInfo2D(unsigned int numberOfNodes);

  /// \return the node's record, owned by this object
  /// \throws std::out_of_range  for an id that is no node, or whose record was released
  NodeLayoutInfo& layoutInfoForNode(int node);

  /// Releases the record of a node, which must not be asked for again.
  void release(int node) { _nodes.at(static_cast<std::size_t>(node)) = nullptr; }

private:
  std::vector<boost::intrusive_ptr<NodeLayoutInfo>> _nodes;
};

} // namespace orvex::render
