#pragma once

#include "paper/Canvas.h"
#include "render/gl/draw/PixelRuns.h"

namespace orvex::paper
{

/// Finds lines that a document need not hold, since they lie in others: a line is as wide as a row
/// or a column of the area, and what falls into one that is full already is not seen.
class LineFilter
{
public:
  /// \param width, height  of the area, in points
  /// \param lineWidth  in points
  LineFilter(double width, double height, double lineWidth);

  /// \param from, to  the ends of a line along a row or a column, in points from the area's lower
  ///                  left corner, y upward
  /// \return false for a line out of the area, too
  bool isNew(const Point& from, const Point& to);

private:
  // With more rows, which are pages of a large tree, hardly two lines share one.
  static constexpr double mostRows = 4e6;

  double _lineWidth;
  double _height;
  bool _knowsRows;
  render::gl::PixelRuns _rows;
  render::gl::PixelRuns _columns;
};

} // namespace orvex::paper
