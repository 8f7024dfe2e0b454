#pragma once

#include "render/gl/draw/Drawable.h"
#include "render/layout/EdgeList.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <new>

/// The white lines from a node to its children: one polyline for each edge, in world units.
///
/// Every inner node of a tree has such lines, so the object lies in the memory of its packed edges.
class LineStrip : public orvex::render::gl::Drawable
{
public:
  static boost::intrusive_ptr<LineStrip> make(orvex::render::EdgeList edges);

  /// Adds the lines to the batch of the pass.
  void render(orvex::render::gl::State& state) const override;

  /// Reads the edges. Must not outlive this object.
  orvex::render::EdgeList::Reader edges() const
  {
    return orvex::render::EdgeList::Reader(reinterpret_cast<const unsigned char*>(this));
  }

  static void operator delete(void* memory) { ::operator delete(memory); }

private:
  LineStrip() = default;

  static void* operator new(std::size_t, orvex::render::EdgeList& edges) { return edges.release(); }
  // For a constructor that throws.
  static void operator delete(void* memory, orvex::render::EdgeList&) { ::operator delete(memory); }
};
