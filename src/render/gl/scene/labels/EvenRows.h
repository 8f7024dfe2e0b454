#pragma once

#include <algorithm>
#include <cstddef>

namespace orvex::render::gl
{

/// Labels whose rows fall evenly, in world units. A row that is asked for is to the bit the one
/// that was added.
class EvenRows
{
public:
  /// \param begin  the number of the first label
  EvenRows(std::size_t begin, double row) : _begin(begin), _end(begin + 1), _first(row) {}

  /// Appends the row of the next label. \return false if it does not continue these
  bool add(double row)
  {
    const double gap = _end == _begin + 1 ? _first - row : _gap;
    if (_rowAt(_end, gap) != row)
    {
      return false;
    }
    _gap = gap;
    ++_end;
    return true;
  }

  std::size_t begin() const { return _begin; }
  std::size_t end() const { return _end; }
  double rowOf(std::size_t label) const { return _rowAt(label, _gap); }
  double distanceOf(std::size_t labels) const { return static_cast<double>(labels) * _gap; }

  /// How many labels further down the first one comes that is further away than a distance; a large
  /// number if none is.
  std::size_t labelsTo(double distance) const
  {
    constexpr double many = 1e15;
    const double gaps = distance / _gap; // of one label, and of labels in one row, the gap is 0.0
    return gaps < many ? static_cast<std::size_t>(std::max(gaps, 0.0)) + 1 : std::size_t(many);
  }
  /// The first label that lies below a row; a large number if none does.
  std::size_t firstBelow(double row) const
  {
    return _first < row ? _begin : _begin + labelsTo(_first - row);
  }

private:
  double _rowAt(std::size_t label, double gap) const
  {
    return _first - static_cast<double>(static_cast<std::ptrdiff_t>(label - _begin)) * gap;
  }

  std::size_t _begin;
  std::size_t _end;
  double _first;
  double _gap = 0.0;
};

} // namespace orvex::render::gl
