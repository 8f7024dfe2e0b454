#pragma once

#include "foundation/math/Matrix44.h"
#include "render/Box2D.h"
#include "render/gl/draw/Text.h"

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
/// The choice goes down the column and compares each label with the last one kept. It knows what
/// the labels have in common, by which it leaves out comparisons whose result is certain.
class LabelColumn
{
public:
  using Texts = std::vector<boost::intrusive_ptr<Text>>;
  /// A bit for each label.
  using Kept = boost::dynamic_bitset<>;

  const Texts& texts() const { return _texts; }
  void reserve(std::size_t count) { _texts.reserve(count); }
  void add(const boost::intrusive_ptr<Text>& text);

  Kept thin(const Kelmar::Math::Matrix44d& localToScreen) const;
  /// The first label whose anchor lies below a row of the window.
  std::size_t firstBelow(double screenY, const Kelmar::Math::Matrix44d& localToScreen) const;

private:
  bool _isSimple(const Kelmar::Math::Matrix44d& localToScreen) const;
  bool _allFit(const Kelmar::Math::Matrix44d& localToScreen) const;
  std::size_t _skip(std::size_t next, const Box2D& last, std::size_t expected,
                    const Kelmar::Math::Matrix44d& localToScreen) const;

  Texts _texts;
  // Every label has a box, and they are anchored in one column, in falling order.
  bool _isUniform = true;
  double _leastGap = std::numeric_limits<double>::infinity();
  /// In label pixels: the box that holds the box of each label, and the one that each holds, which
  /// may be turned inside out.
  Box2D _outer;
  Box2D _inner{{std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()},
               {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()}};
};

} // namespace orvex::render::gl
