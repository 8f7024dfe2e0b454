#include "paper/LineFilter.h"

#include <cmath>

namespace orvex::paper
{

LineFilter::LineFilter(double width, double height, double lineWidth)
    : _lineWidth(lineWidth), _height(height), _knowsRows(height / lineWidth <= mostRows)
{
  const auto columns = static_cast<unsigned int>(std::ceil(width / lineWidth));
  const auto rows = static_cast<unsigned int>(std::ceil(height / lineWidth));
  _columns.reset(columns, rows);
  _rows.reset(_knowsRows ? rows : 0, columns);
}

bool LineFilter::isNew(const Point& from, const Point& to)
{
  if (from.x == to.x)
  {
    return from.y != to.y &&
           !_columns.add(from.x / _lineWidth, from.y / _lineWidth, to.y / _lineWidth).empty();
  }
  if (!_knowsRows)
  {
    return from.y >= 0.0 && from.y <= _height;
  }
  return !_rows.add(from.y / _lineWidth, from.x / _lineWidth, to.x / _lineWidth).empty();
}

} // namespace orvex::paper
