#pragma once

#include "foundation/math/Matrix44.h"
#include "render/gl/draw/Text.h"
#include "render/gl/scene/labels/EvenRows.h"

#include <boost/dynamic_bitset.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace orvex::render::gl
{

/// Labels one below the other, and the choice of those that can be shown without running into each
/// other.
///
/// The plain walk goes down the column and keeps each label whose box in the window does not meet
/// the box of the label kept last. With ten million labels that takes a quarter of a second, so the
/// same choice is made in four steps:
///
/// 1. If all labels have a box and hang in one column, and the matrix only scales and shifts y, all
///    boxes meet in x, and whether two meet is told by y alone. Else the plain walk decides.
/// 2. Each box covers the rows from its anchor on that all boxes cover, the core, and none beyond
///    those that any box covers, the hull. So two labels meet if their anchors are no further apart
///    than the core is high, and do not meet if they are further apart than the hull is high.
/// 3. The leaves of a tree are evenly spaced, but for rounding, which changes the spacing some
///    fifty times down the column. Where it stays the same, the first label that is further away
///    than the core is high is computed, not searched.
/// 4. Only in between the two labels' own heights are compared: their boxes with the very numbers
///    of the plain walk, or, where these would differ by more than rounding, the extents alone.
class LabelColumn
{
public:
  using Texts = std::vector<boost::intrusive_ptr<Text>>;
  /// A bit for each label.
  using Kept = boost::dynamic_bitset<>;

  const Texts& texts() const { return _texts; }
  void reserve(std::size_t count);
  /// \pre the label's anchor is not above that of the label before it, else firstBelowWindowRow
  ///      does not find it
  void add(boost::intrusive_ptr<Text> text);

  /// The labels that the plain walk keeps; the first one always is.
  Kept thin(const Kelmar::Math::Matrix44d& localToScreen) const;
  /// The first label whose anchor lies below a row of the window.
  std::size_t firstBelowWindowRow(double row, const Kelmar::Math::Matrix44d& localToScreen) const;

private:
  class Thinning;

  /// From where to where a label reaches, in pixels from its anchor.
  struct Extent
  {
    double bottom;
    double top;
  };

  void _addExtent(const Extent& extent);
  bool _hangsInOneColumn(const Kelmar::Math::Matrix44d& localToScreen) const;
  Kept _thinByBoxes(const Kelmar::Math::Matrix44d& localToScreen) const;

  Texts _texts;
  // Rows and extents of the labels, in as little memory as the walk needs.
  std::vector<EvenRows> _rows;
  std::vector<std::uint8_t> _extentOf; // of each label, its place in the next list
  std::vector<Extent> _extents;        // few, since letters have few heights
  // Every label has a box and one of the extents, and they hang in one column, in falling order.
  bool _isUniform = true;
  double _greatestRow = 0.0;
  double _leastGap = std::numeric_limits<double>::infinity();
  Extent _core{std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max()};
  Extent _hull{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
  // The columns that all boxes cover, in pixels from the anchor.
  double _coreLeft = std::numeric_limits<double>::lowest();
  double _coreRight = std::numeric_limits<double>::max();
};

} // namespace orvex::render::gl
