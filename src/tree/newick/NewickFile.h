#pragma once

#include "tree/newick/TextPlace.h"

#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace orvex
{

/// What the name of a Newick file ends in, in lower case and without the dot.
constexpr std::array<const char*, 2> newickEndings{"tre", "nwk"};

/// Whether a file's name ends in one of newickEndings, in any case. Looks at the name only.
bool isNewickFile(const std::string& filename);

/// A text file that is read as if it had no line ends. A carriage return is text.
class NewickFile
{
public:
  /// Which share of OpeningStages::reading it takes to bring the bytes into memory.
  static constexpr double shareOfReading = 0.1;

  explicit NewickFile(std::string name) : _name(std::move(name)) {}

  /// The whole text, without its line ends.
  /// \throws boost::filesystem::filesystem_error  if there is no such file
  /// \throws std::runtime_error  if it can't be opened or read, or is too large for the memory
  std::string read() const;

  /// Where a byte of that text stands in the file. Reads the file again, so that reading a correct
  /// one takes no time for it.
  /// \throws std::runtime_error  if it can't be opened or read any more
  TextPlace placeOf(std::size_t offset) const;

private:
  std::string _name;
};

} // namespace orvex
