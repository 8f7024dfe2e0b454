#include "render/layout/EdgeList.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace orvex::render
{
namespace Detail
{
namespace
{

// The byte before each vertex. It says which numbers follow, x first.
constexpr unsigned char end = 0;
// Set for each vertex: one that repeats both numbers would look like the end without it.
constexpr unsigned char vertex = 1;
constexpr unsigned char beginsEdge = 2;
constexpr unsigned char hasX = 4;
constexpr unsigned char hasY = 8;

} // namespace
} // namespace Detail

EdgeList::EdgeList(const EdgeList& other)
{
  if (!other.empty())
  {
    Reader reader(other);
    while (reader.next())
    {
    }
    const unsigned char* first = other._bytes.get();
    const unsigned char* last = reader._next + 1; // with the mark of the end
    _bytes.reset(new unsigned char[static_cast<std::size_t>(last - first)]);
    std::copy(first, last, _bytes.get());
  }
}

EdgeList& EdgeList::operator=(EdgeList other) noexcept
{
  std::swap(_bytes, other._bytes);
  return *this;
}

bool EdgeList::Reader::next()
{
  if (!_next || *_next == Detail::end)
  {
    return false;
  }
  const unsigned char code = *_next++;
  _beginsEdge = (code & Detail::beginsEdge) != 0;
  if (_beginsEdge)
  {
    _vertex = _start;
  }
  _vertex.x = (code & Detail::hasX) ? _number() : _vertex.x;
  _vertex.y = (code & Detail::hasY) ? _number() : _vertex.y;
  if (_beginsEdge)
  {
    _start = _vertex;
  }
  return true;
}

double EdgeList::Reader::_number()
{
  double number = 0.0;
  std::memcpy(&number, _next, sizeof number);
  _next += sizeof number;
  return number;
}

void EdgeList::Writer::add(const Edge2D& edge)
{
  edge.evaluate(_points);
  unsigned char begins = Detail::beginsEdge;
  _previous = _start;
  for (const Point& point : _points)
  {
    const bool isNewX = point.x != _previous.x;
    const bool isNewY = point.y != _previous.y;
    _bytes.push_back(static_cast<unsigned char>(
        Detail::vertex | begins | (isNewX ? Detail::hasX : 0) | (isNewY ? Detail::hasY : 0)));
    _write(point.x, isNewX);
    _write(point.y, isNewY);
    begins = 0;
    _previous = point;
  }
  _start = _points.empty() ? _start : _points.front();
}

void EdgeList::Writer::_write(double number, bool isNew)
{
  if (isNew)
  {
    const std::size_t size = _bytes.size();
    _bytes.resize(size + sizeof number);
    std::memcpy(_bytes.data() + size, &number, sizeof number);
  }
}

EdgeList EdgeList::Writer::finish()
{
  EdgeList edges;
  if (!_bytes.empty())
  {
    _bytes.push_back(Detail::end);
    edges._bytes.reset(new unsigned char[_bytes.size()]);
    std::copy(_bytes.begin(), _bytes.end(), edges._bytes.get());
    _bytes.clear();
  }
  _start = {0.0, 0.0};
  return edges;
}

} // namespace orvex::render
