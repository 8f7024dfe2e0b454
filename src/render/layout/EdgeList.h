#pragma once

#include "render/layout/Edge2D.h"
#include "render/layout/Point2D.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

namespace orvex::render
{

/// The edges from a node to its children, as polylines in world units, kept exactly in one
/// allocation; without edges, in none.
///
/// Every inner node of a tree has such a list, so it is kept small: a coordinate that equals that
/// of the vertex before it is left out, as is the column of the leaves, and a line begins from the
/// vertex where the line before it began. Of an elbow to a child, only the row of its corner and
/// the column of its end are stored; of one to a leaf, the row alone.
///
/// The memory has room for an object before the edges. Who takes it over can be built there, and
/// has its edges in its own allocation.
class EdgeList
{
public:
  using Point = Point2D<double>;

  /// So many bytes are free before the packed edges.
  static constexpr std::size_t headroom = 16;

  EdgeList() = default;
  EdgeList(const EdgeList& other);
  EdgeList(EdgeList&&) noexcept = default;
  EdgeList& operator=(EdgeList other) noexcept;
  ~EdgeList() = default;

  bool empty() const { return !_memory; }
  /// Gives the memory up, which is then to be freed by operator delete; the list is empty. Without
  /// edges it is new memory, too.
  unsigned char* release();

  /// Reads the vertices of all edges, one after the other. Must not outlive its list.
  class Reader
  {
  public:
    explicit Reader(const EdgeList& edges) : Reader(edges._memory.get()) {}
    /// \param memory  of a list, with its headroom; null for one without edges
    explicit Reader(const unsigned char* memory) : _next(memory ? memory + headroom : nullptr) {}

    /// Steps to the next vertex. \return false after the last one
    bool next();
    const Point& vertex() const { return _vertex; }
    /// Whether the vertex is the first of its edge.
    bool beginsEdge() const { return _beginsEdge; }

  private:
    friend class EdgeList;
    double _number();

    const unsigned char* _next;
    Point _vertex{0.0, 0.0};
    Point _start{0.0, 0.0};
    bool _beginsEdge = false;
  };

  /// Makes lists, one after the other.
  class Writer
  {
  public:
    /// Appends an edge to the list; one without points adds nothing.
    void add(const Edge2D& edge);
    /// \return the edges since the last list
    EdgeList finish();

  private:
    void _write(double number, bool isNew);

    std::vector<Point> _points;
    std::vector<unsigned char> _bytes; // the first of them are written
    std::size_t _size = 0;
    Point _previous{0.0, 0.0};
    Point _start{0.0, 0.0};
  };

private:
  struct Free
  {
    void operator()(unsigned char* memory) const { ::operator delete(memory); }
  };

  static unsigned char* _copy(const unsigned char* bytes, std::size_t size);

  std::unique_ptr<unsigned char, Free> _memory;
};

} // namespace orvex::render
