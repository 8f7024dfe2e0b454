#include "render/gl/scene/labels/LabelColumn.h"

#include "render/gl/scene/labels/FourWalks.h"
#include "render/gl/scene/labels/RisingBits.h"

#include <boost/core/noncopyable.hpp>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

// In pixels: more than what rounding makes of a row, whose greatest number is the one below.
constexpr double tolerance = 0.001;
constexpr double greatestRow = 1e10;
constexpr std::size_t mostExtents = 256;

} // namespace
} // namespace Detail

/// The choice for one matrix, as far as it has come down the column.
class LabelColumn::Thinning : private boost::noncopyable
{
public:
  Thinning(const LabelColumn& column, const Kelmar::Math::Matrix44d& localToScreen)
      : _column(column),
        _scale(localToScreen[5]),
        _shift(localToScreen[13]),
        _inverse(1.0 / localToScreen[15]),
        _pixel(localToScreen[15] / localToScreen[5]),
        _near((column._core.top - column._core.bottom - Detail::tolerance) * _pixel),
        _far((column._hull.top - column._hull.bottom + Detail::tolerance) * _pixel)
  {
  }

  Kept kept()
  {
    Kept kept(_column._texts.size());
    if (_column._leastGap > _far) // also where there is no label
    {
      return kept.set();
    }
    _words.resize(kept.num_blocks());
    for (const EvenRows& rows : _column._rows)
    {
      _goDown(rows);
    }
    boost::from_block_range(_words.begin(), _words.end(), kept);
    return kept;
  }

private:
  /// What two extents and their distance tell of two labels.
  enum class Verdict : std::uint8_t
  {
    Apart = 0,
    Meet = 1,
    Unsure ///< so close to the border that rounding decides
  };

  // Step 3. All labels of a run look at those after them in the same distances.
  void _goDown(const EvenRows& rows)
  {
    const std::size_t first = _firstKept(rows);
    if (first >= rows.end())
    {
      return;
    }
    const std::size_t near = rows.labelsTo(_near);
    const std::size_t far = rows.labelsTo(_far);
    const std::size_t last = near == far ? RisingBits(_words).setEvery(near, first, rows.end())
                                         : _keepAndCompare(rows, first, near, far);
    _lastRow = rows.rowOf(last);
    _last = _extent(last);
  }

  std::size_t _firstKept(const EvenRows& rows) const
  {
    std::size_t label = rows.firstBelow(_lastRow - _near);
    const std::size_t end = std::min(rows.end(), rows.firstBelow(_lastRow - _far));
    while (label < end && _meet(_lastRow, _last, rows.rowOf(label), _extent(label)))
    {
      ++label;
    }
    return label;
  }

  std::size_t _keepAndCompare(const EvenRows& rows, std::size_t label, std::size_t near,
                              std::size_t far)
  {
    const std::vector<Verdict> verdicts = _verdictsAt(rows.distanceOf(near) / _pixel);
    const bool isSure =
        std::find(verdicts.begin(), verdicts.end(), Verdict::Unsure) == verdicts.end();
    if (isSure && far == near + 1 && label + far < rows.end())
    {
      label = _walk(label, rows.end() - far, near, verdicts.data());
    }
    RisingBits bits(_words);
    std::size_t last = label;
    while (label < rows.end())
    {
      bits.set(label);
      last = label;
      label = _nextKept(rows, last, near, far, verdicts.data());
    }
    return last;
  }

  // Only two labels can follow each label here, and extents tell which of them does.
  std::size_t _walk(std::size_t label, std::size_t end, std::size_t near, const Verdict* verdicts)
  {
    const std::uint8_t* const extentOf = _column._extentOf.data();
    const std::size_t numberOfExtents = _column._extents.size();
    const auto next = [=](std::size_t last)
    {
      const std::size_t pair = extentOf[last] * numberOfExtents + extentOf[last + near];
      return last + near + static_cast<std::size_t>(verdicts[pair]);
    };
    return FourWalks(_words, near + 1, next).go(label, end);
  }

  std::size_t _nextKept(const EvenRows& rows, std::size_t last, std::size_t near, std::size_t far,
                        const Verdict* verdicts) const
  {
    std::size_t label = last + near;
    if (label >= rows.end())
    {
      return label;
    }
    const auto meetsLast = [&](std::size_t other)
    { return _meet(rows.rowOf(last), _extent(last), rows.rowOf(other), _extent(other)); };
    const std::size_t numberOfExtents = _column._extents.size();
    const Verdict verdict =
        verdicts[_column._extentOf[last] * numberOfExtents + _column._extentOf[label]];
    if (verdict == Verdict::Apart || (verdict == Verdict::Unsure && !meetsLast(label)))
    {
      return label;
    }
    const std::size_t end = std::min(last + far, rows.end());
    for (++label; label < end && meetsLast(label);)
    {
      ++label;
    }
    return label;
  }

  // Step 4, without rounding: for each extent above each extent, so many pixels apart.
  std::vector<Verdict> _verdictsAt(double distance) const
  {
    std::vector<Verdict> verdicts;
    for (const Extent& above : _column._extents)
    {
      for (const Extent& below : _column._extents)
      {
        const double common = std::min(above.top, below.top - distance) -
                              std::max(above.bottom, below.bottom - distance);
        verdicts.push_back(std::abs(common) < Detail::tolerance ? Verdict::Unsure
                           : common > 0.0                       ? Verdict::Meet
                                                                : Verdict::Apart);
      }
    }
    return verdicts;
  }

  // Step 4, with the numbers of the boxes and their own test.
  bool _meet(double rowAbove, const Extent& above, double rowBelow, const Extent& below) const
  {
    const Extent a = _inWindow(rowAbove, above);
    const Extent b = _inWindow(rowBelow, below);
    return std::min(a.top, b.top) >= std::max(a.bottom, b.bottom);
  }

  // What a point's y goes through in the matrix, without the terms that are zero here.
  Extent _inWindow(double row, const Extent& extent) const
  {
    const double y = (_scale * row + _shift) * _inverse;
    return {y + extent.bottom, y + extent.top};
  }

  const Extent& _extent(std::size_t label) const
  {
    return _column._extents[_column._extentOf[label]];
  }

  const LabelColumn& _column;
  double _scale;
  double _shift;
  double _inverse;
  double _pixel; // in world units
  // Step 2, in world units: labels up to here meet, labels beyond there do not.
  double _near;
  double _far;
  std::vector<Kept::block_type> _words{};
  // Of the label kept last.
  double _lastRow = std::numeric_limits<double>::infinity();
  Extent _last{};
};

void LabelColumn::reserve(std::size_t count)
{
  _texts.reserve(count);
  _extentOf.reserve(count);
}

void LabelColumn::add(boost::intrusive_ptr<Text> text)
{
  const Box2D box = text->boundingBox();
  const Point2D<double> anchor = text->position();
  _isUniform = _isUniform && box.valid();
  if (!_texts.empty())
  {
    const Point2D<double>& last = _texts.back()->position();
    _isUniform = _isUniform && anchor.x == last.x && anchor.y <= last.y;
    _leastGap = std::min(_leastGap, last.y - anchor.y);
  }
  if (_rows.empty() || !_rows.back().add(anchor.y))
  {
    _rows.emplace_back(_texts.size(), anchor.y);
  }
  _greatestRow = std::max(_greatestRow, std::abs(anchor.y));
  _coreLeft = std::max(_coreLeft, box.minimum.x);
  _coreRight = std::min(_coreRight, box.maximum.x);
  _addExtent({box.minimum.y, box.maximum.y});
  _texts.push_back(std::move(text));
}

void LabelColumn::_addExtent(const Extent& extent)
{
  _core = {std::max(_core.bottom, extent.bottom), std::min(_core.top, extent.top)};
  _hull = {std::min(_hull.bottom, extent.bottom), std::max(_hull.top, extent.top)};
  const auto isSame = [&extent](const Extent& known)
  { return known.bottom == extent.bottom && known.top == extent.top; };
  const auto known = std::find_if(_extents.begin(), _extents.end(), isSame);
  _extentOf.push_back(static_cast<std::uint8_t>(known - _extents.begin()));
  if (known == _extents.end() && _extents.size() < Detail::mostExtents)
  {
    _extents.push_back(extent);
  }
  else if (known == _extents.end())
  {
    _isUniform = false;
  }
}

LabelColumn::Kept LabelColumn::thin(const Kelmar::Math::Matrix44d& localToScreen) const
{
  return _hangsInOneColumn(localToScreen) ? Thinning(*this, localToScreen).kept()
                                          : _thinByBoxes(localToScreen);
}

// Step 1.
bool LabelColumn::_hangsInOneColumn(const Kelmar::Math::Matrix44d& localToScreen) const
{
  const Kelmar::Math::Matrix44d& m = localToScreen;
  const bool keepsColumns = m[1] == 0.0 && m[4] == 0.0 && m[5] > 0.0 && m[9] == 0.0;
  const bool isAffine = m[3] == 0.0 && m[7] == 0.0 && m[11] == 0.0 && m[15] > 0.0;
  const double greatest = (std::abs(m[13]) + m[5] * _greatestRow) / m[15];
  return keepsColumns && isAffine && greatest < Detail::greatestRow && _isUniform &&
         _coreLeft <= _coreRight;
}

LabelColumn::Kept LabelColumn::_thinByBoxes(const Kelmar::Math::Matrix44d& localToScreen) const
{
  Kept kept(_texts.size());
  Box2D last;
  for (std::size_t i = 0; i < _texts.size(); ++i)
  {
    const Box2D box = _texts[i]->getBoundingBoxScreenSpace(localToScreen);
    if (i == 0 || !box.intersects(last))
    {
      kept.set(i);
      last = box;
    }
  }
  return kept;
}

std::size_t LabelColumn::firstBelowWindowRow(double row,
                                             const Kelmar::Math::Matrix44d& localToScreen) const
{
  const auto isNotBelow = [&](const boost::intrusive_ptr<Text>& text)
  { return text->anchorScreenSpace(localToScreen)[1] >= row; };
  const auto first = std::partition_point(_texts.begin(), _texts.end(), isNotBelow);
  return static_cast<std::size_t>(first - _texts.begin());
}

} // namespace orvex::render::gl
