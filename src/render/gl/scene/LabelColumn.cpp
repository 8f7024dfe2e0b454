#include "render/gl/scene/LabelColumn.h"

#include <algorithm>
#include <cmath>

namespace orvex::render::gl
{

void LabelColumn::add(const boost::intrusive_ptr<Text>& text)
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
  _outer.add(box);
  _inner.minimum = {std::max(_inner.minimum.x, box.minimum.x),
                    std::max(_inner.minimum.y, box.minimum.y)};
  _inner.maximum = {std::min(_inner.maximum.x, box.maximum.x),
                    std::min(_inner.maximum.y, box.maximum.y)};
  _texts.push_back(text);
}

// True if the labels can differ on the screen by their rows only, and rows fall down the column.
bool LabelColumn::_isSimple(const Kelmar::Math::Matrix44d& localToScreen) const
{
  const Kelmar::Math::Matrix44d& m = localToScreen;
  const bool keepsColumns = m[1] == 0.0 && m[4] == 0.0 && m[5] > 0.0;
  const bool isAffine = m[3] == 0.0 && m[7] == 0.0 && m[11] == 0.0 && m[15] > 0.0;
  return keepsColumns && isAffine && _isUniform && _inner.minimum.x <= _inner.maximum.x;
}

bool LabelColumn::_allFit(const Kelmar::Math::Matrix44d& localToScreen) const
{
  const double scale = localToScreen[5] / localToScreen[15];
  const double reach = std::abs(localToScreen[13] / localToScreen[15]) + scale;
  // A pixel covers the rounding, as long as numbers of this size have places behind the point.
  return _leastGap * scale > _outer.maximum.y - _outer.minimum.y + 1.0 && reach < 1e12;
}

LabelColumn::Kept LabelColumn::thin(const Kelmar::Math::Matrix44d& localToScreen) const
{
  const bool isSimple = _isSimple(localToScreen);
  Kept kept(_texts.size());
  if (isSimple && _allFit(localToScreen))
  {
    return kept.set();
  }
  Box2D last;
  std::size_t lastKept = 0;
  for (std::size_t i = 0; i < _texts.size(); ++i)
  {
    const Box2D box = _texts[i]->getBoundingBoxScreenSpace(localToScreen);
    if (i != 0 && box.intersects(last))
    {
      continue;
    }
    kept.set(i);
    last = box;
    if (isSimple)
    {
      const std::size_t distance = i - lastKept;
      lastKept = i;
      i = _skip(i + 1, last, distance, localToScreen) - 1;
    }
  }
  return kept;
}

// Leaves out labels that run into the last one kept whatever their own height is. Compared are the
// very numbers that their boxes would be made of, rounded as those are: sums keep their order.
std::size_t LabelColumn::_skip(std::size_t next, const Box2D& last, std::size_t expected,
                               const Kelmar::Math::Matrix44d& localToScreen) const
{
  const auto row = [&](std::size_t i) { return _texts[i]->anchorScreenSpace(localToScreen)[1]; };
  if (next >= _texts.size() || row(next) + _inner.minimum.y > last.maximum.y)
  {
    return next;
  }
  const auto runsInto = [&](std::size_t i) { return row(i) + _inner.maximum.y >= last.minimum.y; };
  // The next gap is mostly as wide as the last one, so the search starts there.
  std::size_t low = next;
  std::size_t high = std::min(_texts.size(), next + expected);
  for (std::size_t step = 1; high < _texts.size() && runsInto(high); step *= 2)
  {
    low = high;
    high = std::min(_texts.size(), high + step);
  }
  while (low < high)
  {
    const std::size_t middle = low + (high - low) / 2;
    runsInto(middle) ? low = middle + 1 : high = middle;
  }
  return low;
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
