#include "render/gl/scene/LabelColumn.h"

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
constexpr double tolerance = 0.01;
constexpr double greatestRow = 1e12;

/// Rows of the window that a label covers.
struct Range
{
  double low;
  double high;

  /// As the boxes' own test in y.
  bool overlaps(const Range& other) const
  {
    return std::min(high, other.high) >= std::max(low, other.low);
  }
};

} // namespace
} // namespace Detail

void LabelColumn::reserve(std::size_t count)
{
  _texts.reserve(count);
  _rows.reserve(count);
}

void LabelColumn::add(boost::intrusive_ptr<Text> text)
{
  const Box2D box = text->boundingBox();
  _isUniform = _isUniform && box.valid();
  if (!_texts.empty())
  {
    const Point2D<double>& last = _texts.back()->position();
    const double gap = last.y - text->position().y;
    _isUniform = _isUniform && text->position().x == last.x && gap >= 0.0;
    _leastGap = std::min(_leastGap, gap);
  }
  _greatestRow = std::max(_greatestRow, std::abs(text->position().y));
  _outer.add(box);
  _inner.minimum = {std::max(_inner.minimum.x, box.minimum.x),
                    std::max(_inner.minimum.y, box.minimum.y)};
  _inner.maximum = {std::min(_inner.maximum.x, box.maximum.x),
                    std::min(_inner.maximum.y, box.maximum.y)};
  const bool hasBox = box.valid();
  _rows.push_back({text->position().y, hasBox ? static_cast<float>(box.minimum.y) : 0.0f,
                   hasBox ? static_cast<float>(box.maximum.y) : 0.0f});
  _texts.push_back(std::move(text));
}

// True if on the screen the labels differ only in their rows, and the rows fall down the column.
bool LabelColumn::_isSimple(const Kelmar::Math::Matrix44d& localToScreen) const
{
  const Kelmar::Math::Matrix44d& m = localToScreen;
  const bool keepsColumns = m[1] == 0.0 && m[4] == 0.0 && m[5] > 0.0 && m[9] == 0.0;
  const bool isAffine = m[3] == 0.0 && m[7] == 0.0 && m[11] == 0.0 && m[15] > 0.0;
  const double greatest = (std::abs(m[13]) + m[5] * _greatestRow) / m[15];
  return keepsColumns && isAffine && greatest < Detail::greatestRow && _isUniform &&
         _inner.minimum.x <= _inner.maximum.x;
}

LabelColumn::Kept LabelColumn::thin(const Kelmar::Math::Matrix44d& localToScreen) const
{
  return _isSimple(localToScreen) ? _thinByRows(localToScreen) : _thinByBoxes(localToScreen);
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

LabelColumn::Kept LabelColumn::_thinByRows(const Kelmar::Math::Matrix44d& localToScreen) const
{
  const double pixel = localToScreen[15] / localToScreen[5]; // in world units
  // Labels nearer than this run into each other, whatever their own heights are.
  const double near = (_inner.maximum.y - _inner.minimum.y - Detail::tolerance) * pixel;
  // Labels further than that never do.
  const double far = (_outer.maximum.y - _outer.minimum.y + Detail::tolerance) * pixel;
  Kept kept(_texts.size());
  if (_leastGap > far) // also where there is no label
  {
    return kept.set();
  }
  // The very numbers that the box of a label is made of: what a point goes through in the matrix,
  // without the terms that are zero here.
  const double scale = localToScreen[5];
  const double shift = localToScreen[13];
  const double inverse = 1.0 / localToScreen[15];
  const auto rangeOf = [=](const Row& row)
  {
    const double y = (scale * row.y + shift) * inverse;
    return Detail::Range{y + row.bottom, y + row.top};
  };
  std::size_t gap = 1;
  for (std::size_t i = 0; i < _rows.size();)
  {
    kept.set(i);
    std::size_t next = _firstBelow(_rows[i].y - near, i + 1, gap);
    const double clear = _rows[i].y - far;
    if (next < _rows.size() && _rows[next].y >= clear)
    {
      const Detail::Range last = rangeOf(_rows[i]);
      while (next < _rows.size() && _rows[next].y >= clear && rangeOf(_rows[next]).overlaps(last))
      {
        ++next;
      }
    }
    gap = next - i;
    i = next;
  }
  return kept;
}

// The first label at or after a start that lies below a row. The gaps of a level are much alike, so
// the search begins where the last one lets expect the next label.
std::size_t LabelColumn::_firstBelow(double row, std::size_t start, std::size_t expected) const
{
  std::size_t low = start;
  std::size_t high = std::min(_rows.size(), start + expected - 1);
  for (std::size_t step = 1; high < _rows.size() && _rows[high].y >= row; step *= 2)
  {
    low = high + 1;
    high = std::min(_rows.size(), low + step - 1);
  }
  if (low < high && _rows[high - 1].y >= row)
  {
    return high;
  }
  const auto at = [this](std::size_t i) { return _rows.begin() + static_cast<std::ptrdiff_t>(i); };
  const auto first =
      std::partition_point(at(low), at(high), [row](const Row& other) { return other.y >= row; });
  return static_cast<std::size_t>(first - _rows.begin());
}

std::size_t LabelColumn::firstBelow(double screenY,
                                    const Kelmar::Math::Matrix44d& localToScreen) const
{
  const auto isNotBelow = [&](const boost::intrusive_ptr<Text>& text)
  { return text->anchorScreenSpace(localToScreen)[1] >= screenY; };
  const auto first = std::partition_point(_texts.begin(), _texts.end(), isNotBelow);
  return static_cast<std::size_t>(first - _texts.begin());
}

} // namespace orvex::render::gl
