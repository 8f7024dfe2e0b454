#pragma once

#include "convert/Source.h"

#include <cstddef>
#include <string>

namespace orvex::convert
{

/// A piece of a text in Newick or NEXUS.
struct Token
{
  enum class Kind
  {
    Open,
    Close,
    Comma,
    Colon,
    Semicolon,
    Equals, // in words only
    Text,
    End
  };

  Kind kind = Kind::End;
  /// Without the quotes that stood around it.
  std::string text;
  Place place;
  bool isQuoted = false;
};

/// Cuts a text into tokens. Leaves out blanks, line ends, comments in square brackets, which may
/// lie in each other, and marks in braces.
class Lexer
{
public:
  /// \param source  must outlive the object
  explicit Lexer(Source& source) : _source(source) {}

  /// The next token of a tree. Blanks within an unquoted text belong to it, one for each gap.
  /// \throws BadText  where a quote or a comment does not end; so does nextWord
  Token next() { return _next(false); }
  /// The next token of a command of NEXUS, in which a blank or "=" ends an unquoted text.
  Token nextWord() { return _next(true); }
  /// The first byte of the next token, which stays the next one; Source::end behind the last.
  int peek();

  /// What was left out so far.
  std::size_t comments() const { return _comments; }

private:
  Token _next(bool isWord);
  void _skipBlanks();
  void _skipComment();
  std::string _quoted(const Place& place);
  std::string _unquoted(bool isWord);

  Source& _source;
  std::size_t _comments = 0;
};

} // namespace orvex::convert
