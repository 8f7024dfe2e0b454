#pragma once

#include "render/gl/scene/Node.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <vector>

namespace orvex::render::gl
{

/// A node with children, which it owns.
class Group : public Node
{
public:
  void accept(Visitor& visitor) override;

  /// Appends the child; null is ignored.
  void addChild(boost::intrusive_ptr<Node> child);
  void reserve(std::size_t numberOfChildren) { _children.reserve(numberOfChildren); }
  const std::vector<boost::intrusive_ptr<Node>>& children() const { return _children; }

  /// Sends the visitor to every child, in order.
  void traverse(Visitor& visitor);

private:
  std::vector<boost::intrusive_ptr<Node>> _children;
};

} // namespace orvex::render::gl
