#pragma once

#include "render/gl/scene/Node.h"

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <utility>

namespace orvex::render::gl
{

/// A sequence of nodes: what of std::vector a scene needs, in two thirds of its size.
class NodeList : private boost::noncopyable
{
public:
  using Pointer = boost::intrusive_ptr<Node>;

  NodeList() = default;
  ~NodeList() { _free(); }

  std::size_t size() const { return _size; }
  bool empty() const { return _size == 0; }
  const Pointer* begin() const { return _nodes; }
  const Pointer* end() const { return _nodes + _size; }
  /// \throws std::out_of_range
  const Pointer& at(std::size_t i) const
  {
    return i < _size ? _nodes[i] : throw std::out_of_range("there is no such node");
  }

  /// Makes room for so many, and for no more.
  void reserve(std::uint32_t capacity)
  {
    if (capacity > _capacity)
    {
      Pointer* nodes = std::allocator<Pointer>().allocate(capacity);
      std::uninitialized_move_n(_nodes, _size, nodes);
      _free();
      _nodes = nodes;
      _capacity = capacity;
    }
  }

  void push_back(Pointer node)
  {
    if (_size == _capacity)
    {
      reserve(std::max(_size * 2, std::uint32_t(2)));
    }
    new (_nodes + _size) Pointer(std::move(node));
    ++_size;
  }

private:
  void _free()
  {
    std::destroy_n(_nodes, _size);
    std::allocator<Pointer>().deallocate(_nodes, _capacity);
  }

  Pointer* _nodes = nullptr;
  std::uint32_t _size = 0;
  std::uint32_t _capacity = 0;
};

} // namespace orvex::render::gl
