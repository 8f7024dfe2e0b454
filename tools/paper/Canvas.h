#pragma once

#include "render/layout/Box2D.h"
#include "render/layout/Point2D.h"

#include <boost/core/noncopyable.hpp>

#include <array>
#include <string>
#include <vector>

namespace orvex::paper
{

using Point = render::Point2D<double>;
using render::Box2D;

/// A document of one or more sheets that is drawn from the front to the back. Lengths are points,
/// 72 to an inch; the origin of a sheet is its upper left corner, y downward.
class Canvas : private boost::noncopyable
{
public:
  virtual ~Canvas() = default;

  /// Starts the next sheet.
  virtual void beginSheet(double width, double height) = 0;
  /// Until the next call or the next sheet, nothing is drawn outside a box.
  virtual void clip(const Box2D& box) = 0;
  /// How wide lines are from now on; 1.0 at first.
  virtual void lineWidth(double width) = 0;

  /// A line along points, with square ends and sharp corners.
  virtual void line(const std::vector<Point>& points) = 0;
  /// The outline of a clade.
  virtual void outline(const std::array<Point, 3>& corners) = 0;
  /// \param start  where the text starts, on its baseline
  /// \param text  in UTF-8
  /// \param em  the size of the font
  virtual void text(const Point& start, const std::string& text, double em) = 0;
  /// A rectangle over what it marks, which shines through.
  virtual void mark(const Box2D& box) = 0;

  /// Writes what is not written yet. Without this call no file is left.
  /// \throws std::runtime_error  if the document can't be written
  virtual void finish() = 0;
};

} // namespace orvex::paper
