#pragma once

#include "render/layout/Edge2D.h"
#include "render/layout/Point2D.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <memory>
#include <vector>

namespace orvex::render
{

/// The edges from a node to its children, as polylines in world units, kept exactly in one
/// allocation; without edges, in none.
///
/// Every inner node of a tree has such a list, so it is kept small: a coordinate that equals that
/// of the vertex before it is left out, and a line begins from the vertex where the line before it
/// began. Of an elbow to a child, only the row of its corner and the column of its end are stored.
class EdgeList
{
public:
  using Point = Point2D<double>;

  EdgeList() = default;
  EdgeList(const EdgeList& other);
  EdgeList(EdgeList&&) noexcept = default;
  EdgeList& operator=(EdgeList other) noexcept;
  ~EdgeList() = default;

  bool empty() const { return !_bytes; }

  /// Reads the vertices of all edges, one after the other. Must not outlive its list.
  class Reader
  {
  public:
    explicit Reader(const EdgeList& edges) : _next(edges._bytes.get()) {}

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
    std::vector<unsigned char> _bytes;
    Point _previous{0.0, 0.0};
    Point _start{0.0, 0.0};
  };

private:
  std::unique_ptr<unsigned char[]> _bytes;
};

} // namespace orvex::render
