#include "convert/Source.h"

#include <boost/iostreams/filter/gzip.hpp>
#include <boost/iostreams/filter/lzma.hpp>
#include <boost/iostreams/filtering_streambuf.hpp>

#include <algorithm>
#include <cstring>

namespace orvex::convert
{
namespace Detail
{
namespace
{

constexpr std::size_t blockSize = 65536;

// The first bytes of a stream tell how it is packed; looking at one of them takes none.
std::unique_ptr<std::streambuf> unpack(std::streambuf& packed)
{
  namespace io = boost::iostreams;
  constexpr int gzip = 0x1F;
  constexpr int xz = 0xFD;
  const int first = packed.sgetc();
  if (first != gzip && first != xz)
  {
    return nullptr;
  }
  auto unpacked = std::make_unique<io::filtering_streambuf<io::input>>();
  first == gzip ? unpacked->push(io::gzip_decompressor()) : unpacked->push(io::lzma_decompressor());
  unpacked->push(packed);
  return unpacked;
}

} // namespace
} // namespace Detail

Source::Source(std::streambuf& packed)
    : _unpacked(Detail::unpack(packed)),
      _bytes(_unpacked ? *_unpacked : packed),
      _block(Detail::blockSize)
{
  _fill();
  if (_size >= 3 && std::memcmp(_block.data(), "\xEF\xBB\xBF", 3) == 0)
  {
    _next = 3;
  }
}

Source::~Source() = default;

int Source::take()
{
  const int byte = peek();
  if (byte == end)
  {
    return end;
  }
  ++_next;
  ++_place.column;
  if (byte == '\r' || (byte == '\n' && _before != '\r'))
  {
    ++_place.line;
  }
  if (byte == '\r' || byte == '\n')
  {
    _place.column = 1;
  }
  _before = byte;
  return byte;
}

bool Source::_fill()
{
  _next = 0;
  _size = 0;
  try
  {
    const std::streamsize read =
        _bytes.sgetn(_block.data(), static_cast<std::streamsize>(_block.size()));
    _size = static_cast<std::size_t>(std::max<std::streamsize>(read, 0));
  }
  catch (const std::ios_base::failure&)
  {
    throw std::runtime_error(_unpacked ? "its packed text is damaged, or cut off"
                                       : "it can't be read");
  }
  return _size > 0;
}

} // namespace orvex::convert
