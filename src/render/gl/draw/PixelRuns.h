#pragma once

#include <vector>

namespace orvex::render::gl
{

/// Neighbouring pixels in a row or in a column, both ends included.
struct PixelRun
{
  int first = 0;
  int last = -1;

  bool empty() const { return first > last; }
};

/// The pixel in which a position lies.
///
/// Where the layout puts a position on the border of two pixels, the matrices leave it a rounding
/// error on either side; such positions all go to the pixel below or left of it. Only the border of
/// the area itself belongs to the area's first pixel: a picture of a whole tree has the root there.
double pixelOf(double position);

/// The pixels that are lit in the rows of an area, or in its columns: one run of them is remembered
/// for each. Parts of a tree that are close together are drawn to the same pixels many times.
class PixelRuns
{
public:
  /// Nothing is lit.
  /// \param lines  how many rows or columns there are
  /// \param length  how many pixels each has
  void reset(unsigned int lines, unsigned int length);

  /// Lights a row or column between two positions, given in pixels and in any order.
  /// \return the pixels from the one to the other that lie in the area; none where all of them are
  ///         known to be lit already
  PixelRun add(double line, double from, double to);

private:
  PixelRun _clip(double from, double to) const;

  unsigned int _length = 0;
  std::vector<PixelRun> _lit;
};

} // namespace orvex::render::gl
