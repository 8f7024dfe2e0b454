#pragma once

#include "convert/Place.h"

#include <boost/core/noncopyable.hpp>

#include <cstddef>
#include <memory>
#include <streambuf>
#include <string>
#include <vector>

namespace orvex::convert
{

/// The bytes of a text one after the other, read in blocks. Text that gzip or xz has packed is
/// unpacked; a byte order mark of UTF-8 is left out.
class Source : private boost::noncopyable
{
public:
  static constexpr int end = -1;

  /// \param packed  must outlive the object
  /// \throws std::runtime_error  if the bytes can't be read or unpacked; so do peek and take
  explicit Source(std::streambuf& packed);
  ~Source();

  /// The next byte, from 0 to 255, which stays the next one; \c end behind the last.
  int peek() { return _next < _size || _fill() ? static_cast<unsigned char>(_block[_next]) : end; }
  /// Takes the next byte.
  int take();
  /// Where the next byte stands. Lines end with a line feed, a carriage return or both.
  const Place& place() const { return _place; }

private:
  bool _fill();

  std::unique_ptr<std::streambuf> _unpacked;
  std::streambuf& _bytes;
  std::vector<char> _block;
  std::size_t _next = 0;
  std::size_t _size = 0;
  Place _place;
  int _before = end;
};

} // namespace orvex::convert
