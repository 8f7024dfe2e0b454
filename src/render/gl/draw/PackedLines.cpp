#include "render/gl/draw/PackedLines.h"

#include <cstddef>
#include <cstring>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

using Point = PackedLines::Point;

// The byte before each vertex. It says which numbers follow, x first.
constexpr unsigned char end = 0;
constexpr unsigned char vertex = 1;
constexpr unsigned char beginsLine = 2;
constexpr unsigned char hasX = 4;
constexpr unsigned char hasY = 8;

/// Writes lines to memory; for null it only counts the bytes that they take.
class Writer
{
public:
  explicit Writer(unsigned char* to) : _to(to) {}

  void write(const std::vector<Point>& line)
  {
    unsigned char begins = beginsLine;
    _previous = _lineStart;
    for (const Point& point : line)
    {
      const int x = point.x != _previous.x ? hasX : 0;
      const int y = point.y != _previous.y ? hasY : 0;
      _write(static_cast<unsigned char>(vertex | begins | x | y));
      _write(point.x, x != 0);
      _write(point.y, y != 0);
      begins = 0;
      _previous = point;
    }
    if (!line.empty())
    {
      _lineStart = line.front();
    }
  }

  std::size_t finish()
  {
    _write(end);
    return _size;
  }

private:
  template <class T>
  void _write(const T& value, bool wanted = true)
  {
    if (wanted && _to)
    {
      std::memcpy(_to + _size, &value, sizeof value);
    }
    _size += wanted ? sizeof value : 0;
  }

  unsigned char* _to;
  std::size_t _size = 0;
  Point _previous{0.0, 0.0};
  Point _lineStart{0.0, 0.0};
};

std::size_t write(const std::vector<boost::intrusive_ptr<Edge2D>>& edges, unsigned char* to)
{
  Writer writer(to);
  std::vector<Point> line;
  for (const auto& edge : edges)
  {
    if (edge)
    {
      edge->evaluate(line);
      writer.write(line);
    }
  }
  return writer.finish();
}

} // namespace
} // namespace Detail

PackedLines::PackedLines(const std::vector<boost::intrusive_ptr<Edge2D>>& edges)
{
  if (!edges.empty())
  {
    _bytes.reset(new unsigned char[Detail::write(edges, nullptr)]);
    Detail::write(edges, _bytes.get());
  }
}

bool PackedLines::Reader::next()
{
  if (!_next || *_next == Detail::end)
  {
    return false;
  }
  const unsigned char code = *_next++;
  _beginsLine = (code & Detail::beginsLine) != 0;
  if (_beginsLine)
  {
    _vertex = _lineStart;
  }
  _vertex.x = (code & Detail::hasX) ? _number() : _vertex.x;
  _vertex.y = (code & Detail::hasY) ? _number() : _vertex.y;
  if (_beginsLine)
  {
    _lineStart = _vertex;
  }
  return true;
}

double PackedLines::Reader::_number()
{
  double number = 0.0;
  std::memcpy(&number, _next, sizeof number);
  _next += sizeof number;
  return number;
}

} // namespace orvex::render::gl
