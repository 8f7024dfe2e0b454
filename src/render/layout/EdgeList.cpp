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
constexpr unsigned char isAtLeaves = 16; // x is that of the leaves

constexpr double columnOfLeaves = 1.0;
constexpr std::size_t mostBytes = 1 + 2 * sizeof(double); // of a vertex

} // namespace
} // namespace Detail

EdgeList::EdgeList(const EdgeList& other)
{
  if (!other.empty())
  {
    const unsigned char* const first = other._memory.get() + headroom;
    Reader reader(other);
    while (reader.next())
    {
    }
    _memory.reset(_copy(first, static_cast<std::size_t>(reader._next - first) + 1)); // with the end
  }
}

EdgeList& EdgeList::operator=(EdgeList other) noexcept
{
  std::swap(_memory, other._memory);
  return *this;
}

unsigned char* EdgeList::_copy(const unsigned char* bytes, std::size_t size)
{
  auto* const memory = static_cast<unsigned char*>(::operator new(headroom + size));
  std::copy_n(bytes, size, memory + headroom);
  return memory;
}

unsigned char* EdgeList::release()
{
  return _memory ? _memory.release() : _copy(&Detail::end, 1);
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
  _vertex.x = (code & Detail::isAtLeaves) ? Detail::columnOfLeaves : _vertex.x;
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
  // Room for all that may come, so that writing is no more than a copy of known size.
  const std::size_t most = _size + _points.size() * Detail::mostBytes + sizeof Detail::end;
  _bytes.resize(std::max(_bytes.size(), most));
  unsigned char begins = Detail::beginsEdge;
  _previous = _start;
  for (const Point& point : _points)
  {
    const bool isAtLeaves = point.x == Detail::columnOfLeaves;
    const bool isNewX = point.x != _previous.x && !isAtLeaves;
    const bool isNewY = point.y != _previous.y;
    _bytes[_size++] =
        static_cast<unsigned char>(Detail::vertex | begins | (isAtLeaves ? Detail::isAtLeaves : 0) |
                                   (isNewX ? Detail::hasX : 0) | (isNewY ? Detail::hasY : 0));
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
    std::memcpy(_bytes.data() + _size, &number, sizeof number);
    _size += sizeof number;
  }
}

EdgeList EdgeList::Writer::finish()
{
  EdgeList edges;
  if (_size > 0)
  {
    _bytes[_size++] = Detail::end;
    edges._memory.reset(_copy(_bytes.data(), _size));
    _size = 0;
  }
  _start = {0.0, 0.0};
  return edges;
}

} // namespace orvex::render
