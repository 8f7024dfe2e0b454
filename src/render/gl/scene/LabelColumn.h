#pragma once

#include "foundation/math/Matrix44.h"
#include "render/gl/draw/Text.h"
#include "render/layout/Box2D.h"

#include <boost/dynamic_bitset.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <limits>
#include <vector>

namespace orvex::render::gl
{

/// Labels one below the other, and the choice of those that can be shown without running into each
/// other.
///
/// The choice goes down the column and compares each label with the last one kept. By what the
/// labels have in common most comparisons can be told from the distance of two rows, without a look
/// at the labels.
class LabelColumn
{
public:
  using Texts = std::vector<boost::intrusive_ptr<Text>>;
  /// A bit for each label.
  using Kept = boost::dynamic_bitset<>;

  const Texts& texts() const { return _texts; }
  void reserve(std::size_t count);
  void add(boost::intrusive_ptr<Text> text);

  Kept thin(const Kelmar::Math::Matrix44d& localToScreen) const;
  /// The first label whose anchor lies below a row of the window.
  std::size_t firstBelow(double screenY, const Kelmar::Math::Matrix44d& localToScreen) const;

private:
  /// Of one label: its anchor's row in world units, and how far it reaches from there in pixels.
  struct Row
  {
    double y;
    float bottom;
    float top;
  };

  bool _isSimple(const Kelmar::Math::Matrix44d& localToScreen) const;
  Kept _thinByRows(const Kelmar::Math::Matrix44d& localToScreen) const;
  Kept _thinByBoxes(const Kelmar::Math::Matrix44d& localToScreen) const;
  std::size_t _firstBelow(double row, std::size_t start, std::size_t expected) const;

  Texts _texts;
  // The same once more for a walk through the memory of this alone.
  std::vector<Row> _rows;
  // Every label has a box, and they are anchored in one column, in falling order.
  bool _isUniform = true;
  double _greatestRow = 0.0;
  double _leastGap = std::numeric_limits<double>::infinity();
  /// In label pixels: the box that contains the boxes of all labels, and the box that each of them
  /// contains, whose minimum may be above its maximum.
  Box2D _outer;
  Box2D _inner{{std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()},
               {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()}};
};

} // namespace orvex::render::gl
