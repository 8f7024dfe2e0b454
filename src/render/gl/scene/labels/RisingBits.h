#pragma once

#include <boost/core/noncopyable.hpp>
#include <boost/dynamic_bitset.hpp>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace orvex::render::gl
{

/// Sets bits of a bitset's words, in rising order. A word goes to memory when it is complete, since
/// to read again what was just written costs more than all else.
class RisingBits : private boost::noncopyable
{
public:
  using Bitset = boost::dynamic_bitset<>;
  using Word = Bitset::block_type;
  static constexpr std::size_t bitsPerWord = Bitset::bits_per_block;

  explicit RisingBits(std::vector<Word>& words) : _words(words.data()) {}
  ~RisingBits() { _words[_index] |= _word; }

  void set(std::size_t bit)
  {
    if (bit / bitsPerWord != _index)
    {
      _words[_index] |= _word;
      _index = bit / bitsPerWord;
      _word = 0;
    }
    _word |= Word(1) << bit % bitsPerWord;
  }

  /// Sets the first bit and every so manyth after it. \return the last one that is set
  std::size_t setEvery(std::size_t step, std::size_t first, std::size_t end)
  {
    std::size_t bit = first;
    while (bit < end)
    {
      set(bit);
      const std::size_t endOfWord = std::min(end, (_index + 1) * bitsPerWord);
      for (bit += step; bit < endOfWord; bit += step)
      {
        _word |= Word(1) << bit % bitsPerWord;
      }
    }
    return bit - step;
  }

private:
  Word* _words;
  std::size_t _index = 0;
  Word _word = 0;
};

} // namespace orvex::render::gl
