#pragma once

#include "convert/Lexer.h"
#include "convert/TreeText.h"

#include <cstddef>
#include <optional>
#include <string>

namespace orvex::convert
{

/// What stands before a tree in a file.
struct TreeHeader
{
  /// Counted from 1, over the whole file.
  std::size_t number = 0;
  /// Of NEXUS; empty in Newick.
  std::string name;
  /// Marked as the one that is meant if none is named.
  bool isDefault = false;
};

/// The trees of a file, one after the other: Newick, or NEXUS if the text begins with #NEXUS.
class TreeFile
{
public:
  /// \param source  must outlive the object
  explicit TreeFile(Source& source) : _lexer(source) {}

  /// Goes on to the next tree, which has to be read then, by a TreeText of lexer() and
  /// translation(). \return nothing behind the last one
  /// \throws BadText
  std::optional<TreeHeader> next();

  Lexer& lexer() { return _lexer; }
  const Translation& translation() const { return _translation; }

private:
  void _readMark();
  bool _toTreeOfBlock(TreeHeader& header);
  void _readCommand(const std::string& command);
  void _readTranslation();
  void _readTaxonLabels();
  void _readHeader(TreeHeader& header);
  void _skipCommand();
  Token _expectWord(const char* what);

  Lexer _lexer;
  bool _isNexus = false;
  std::size_t _trees = 0;
  // Of the block that is read, in lower case; empty between blocks.
  std::string _block;
  // The taxa of the file by their numbers, which stand for them where no other short names do.
  Translation _numbers;
  Translation _translation;
};

} // namespace orvex::convert
