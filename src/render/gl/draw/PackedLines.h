#pragma once

#include "render/Edge2D.h"
#include "render/Point2D.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <memory>
#include <vector>

namespace orvex::render::gl
{

/// Polylines in world units, kept exactly in one allocation; without lines, in none.
///
/// Every node of a tree has such lines, so they are kept small: a coordinate that equals that of
/// the vertex before it is left out, and a line begins from the vertex where the line before it
/// began. Of an elbow to a child, only the row of its corner and the column of its end are stored.
class PackedLines
{
public:
  using Point = Point2D<double>;

  /// A null edge adds no line.
  explicit PackedLines(const std::vector<boost::intrusive_ptr<Edge2D>>& edges);

  /// Reads the vertices of all lines, one after the other.
  class Reader
  {
  public:
    explicit Reader(const PackedLines& lines) : _next(lines._bytes.get()) {}

    /// Steps to the next vertex. \return false after the last one
    bool next();
    const Point& vertex() const { return _vertex; }
    /// Whether the vertex is the first of its line.
    bool beginsLine() const { return _beginsLine; }

  private:
    double _number();

    const unsigned char* _next;
    Point _vertex{0.0, 0.0};
    Point _lineStart{0.0, 0.0};
    bool _beginsLine = false;
  };

private:
  std::unique_ptr<unsigned char[]> _bytes;
};

} // namespace orvex::render::gl
