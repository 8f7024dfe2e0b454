#pragma once

#include "render/gl/scene/Node.h"

#include <boost/container/options.hpp>
#include <boost/container/vector.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstdint>

namespace orvex::render::gl
{

/// A node with children, which it owns.
class Group : public Node
{
public:
  // A large tree has millions of lists. With sizes of 32 bits they take two thirds of the room.
  using Options = boost::container::vector_options<boost::container::stored_size<std::uint32_t>>;
  using Children = boost::container::vector<boost::intrusive_ptr<Node>, void, Options::type>;

  void accept(Visitor& visitor) override;

  /// Appends the child; null is ignored.
  void addChild(boost::intrusive_ptr<Node> child);
  void reserve(std::uint32_t numberOfChildren) { _children.reserve(numberOfChildren); }
  const Children& children() const { return _children; }

  /// Sends the visitor to every child, in order.
  void traverse(Visitor& visitor);

private:
  Children _children;
};

} // namespace orvex::render::gl
