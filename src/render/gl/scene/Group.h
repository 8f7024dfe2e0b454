#pragma once

#include "render/gl/scene/Node.h"
#include "render/gl/scene/NodeList.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstdint>

namespace orvex::render::gl
{

/// A node with children, which it owns.
class Group : public Node
{
public:
  void accept(Visitor& visitor) override;

  /// Appends the child; null is ignored.
  void addChild(boost::intrusive_ptr<Node> child);
  void reserve(std::uint32_t numberOfChildren) { _children.reserve(numberOfChildren); }
  const NodeList& children() const { return _children; }

  /// Sends the visitor to every child, in order.
  void traverse(Visitor& visitor);

private:
  NodeList _children;
};

} // namespace orvex::render::gl
