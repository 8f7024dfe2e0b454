#pragma once

#include "convert/Lexer.h"
#include "convert/Names.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace orvex::convert
{

/// Names by the short ones that stand for them in the trees of a file.
using Translation = std::unordered_map<std::string, std::string>;

/// Reads one tree of Newick in full and writes it in the viewer's form: names and branch lengths
/// between "(", ")", "," and ":", and nothing else. Keeps no tree: any number of leaves and any
/// depth take the memory of the text.
class TreeText
{
public:
  /// \param names  null writes nothing, and only counts the leaves
  TreeText(Lexer& lexer, Names* names, const Translation& translation)
      : _lexer(lexer), _names(names), _translation(translation)
  {
  }

  /// Reads up to the ";", or the end of the text in its place.
  /// \throws BadText
  void read();

  /// With ";" and a line end.
  const std::string& text() const { return _text; }
  std::size_t leaves() const { return _leaves; }

private:
  /// What stands before the next token.
  enum class After
  {
    Start, // of the tree or of an item
    Group,
    Label,
    Colon,
    Length
  };

  void _accept(const Token& token);
  void _open(const Token& token);
  void _endItem(const Token& token);
  void _label(const Token& token);
  void _length(const Token& token);
  void _finish(const Token& token);
  void _write(std::string_view text);

  Lexer& _lexer;
  Names* _names;
  const Translation& _translation;
  std::string _text;
  std::size_t _leaves = 0;
  std::size_t _depth = 0;
  After _after = After::Start;
  // The item in hand is a group that was closed, not a leaf.
  bool _isGroup = false;
  bool _isComplete = false;
};

} // namespace orvex::convert
