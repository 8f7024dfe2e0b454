#pragma once

#include "render/gl/scene/labels/RisingBits.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace orvex::render::gl
{

/// A walk over rising numbers that sets a bit for each. Where it goes from a number depends on that
/// number alone.
///
/// Each step waits for what the step before it reads. So a long walk is cut into four pieces that
/// are walked side by side, which takes a third of the time. Where the walk enters the last three
/// is not known at that time, so they begin at a guess. Walks that share a number are the same from
/// there on. So in the end the walk out of each piece goes on in the next one until it shares a
/// number with the walk that was guessed, whose bits before that number are taken back. If they
/// share none, the whole piece is done again.
template <class Next>
class FourWalks
{
public:
  using Words = std::vector<RisingBits::Word>;

  /// \param words  the caller's, for as long as this is used
  /// \param longest  no step is longer
  /// \param next  gives the number after a number
  FourWalks(Words& words, std::size_t longest, Next next)
      : _words(words), _longest(longest), _next(std::move(next))
  {
  }

  /// Sets the bits of a walk. \return the first number of the walk that is not below the end
  std::size_t go(std::size_t first, std::size_t end)
  {
    if (first >= end || (end - first) / _longest < fewest)
    {
      return _goAlone(first, end);
    }
    const std::size_t begin = (first / bitsPerWord + 1) * bitsPerWord;
    const std::size_t piece = (end - begin) / (4 * bitsPerWord) * bitsPerWord;
    const Bounds bounds{first, begin + piece, begin + 2 * piece, begin + 3 * piece, end};
    std::array<std::size_t, 4> exits = _goSideBySide(bounds);
    for (std::size_t i = 1; i < 4; ++i)
    {
      exits[i] = _join(exits[i - 1], _guess(bounds, i), bounds[i + 1], exits[i]);
    }
    return exits[3];
  }

private:
  // No two pieces have a word in common.
  using Bounds = std::array<std::size_t, 5>;

  static constexpr std::size_t bitsPerWord = RisingBits::bitsPerWord;
  static constexpr std::size_t fewest = 256; // steps; fewer are not worth the cutting

  std::size_t _goAlone(std::size_t number, std::size_t end) const
  {
    RisingBits bits(_words);
    for (; number < end; number = _next(number))
    {
      bits.set(number);
    }
    return number;
  }

  // Right where all steps are of the longest kind, in which case walks could miss each other.
  std::size_t _guess(const Bounds& bounds, std::size_t i) const
  {
    const std::size_t steps = (bounds[i] - bounds[0] + _longest - 1) / _longest;
    return bounds[0] + steps * _longest;
  }

  std::array<std::size_t, 4> _goSideBySide(const Bounds& bounds) const
  {
    std::array<std::size_t, 4> at{bounds[0], _guess(bounds, 1), _guess(bounds, 2),
                                  _guess(bounds, 3)};
    {
      const Next next = _next; // of its own, as what is written might lie in this object
      std::array<RisingBits, 4> bits{RisingBits(_words), RisingBits(_words), RisingBits(_words),
                                     RisingBits(_words)};
      while (at[0] < bounds[1] && at[1] < bounds[2] && at[2] < bounds[3] && at[3] < bounds[4])
      {
        for (std::size_t i = 0; i < 4; ++i)
        {
          bits[i].set(at[i]);
          at[i] = next(at[i]);
        }
      }
    }
    for (std::size_t i = 0; i < 4; ++i)
    {
      at[i] = _goAlone(at[i], bounds[i + 1]);
    }
    return at;
  }

  // \return where the walk leaves the piece
  std::size_t _join(std::size_t entry, std::size_t guess, std::size_t end, std::size_t exit) const
  {
    while (entry != guess && std::min(entry, guess) < end)
    {
      std::size_t& behind = entry < guess ? entry : guess;
      _words[behind / bitsPerWord] ^= RisingBits::Word(1) << behind % bitsPerWord;
      behind = _next(behind);
    }
    return entry == guess ? exit : entry;
  }

  Words& _words;
  std::size_t _longest;
  Next _next;
};

} // namespace orvex::render::gl
