#include "convert/Lexer.h"

namespace orvex::convert
{
namespace Detail
{
namespace
{

bool isBlank(int byte)
{
  return byte >= 0 && byte <= ' ';
}

bool beginsComment(int byte)
{
  return byte == '[' || byte == '{';
}

Token::Kind kindOf(int byte, bool isWord)
{
  using Kind = Token::Kind;
  switch (byte)
  {
  case Source::end:
    return Kind::End;
  case '(':
    return Kind::Open;
  case ')':
    return Kind::Close;
  case ',':
    return Kind::Comma;
  case ':':
    return Kind::Colon;
  case ';':
    return Kind::Semicolon;
  case '=':
    return isWord ? Kind::Equals : Kind::Text;
  default:
    return Kind::Text;
  }
}

} // namespace
} // namespace Detail

int Lexer::peek()
{
  _skipBlanks();
  return _source.peek();
}

Token Lexer::_next(bool isWord)
{
  const int first = peek();
  Token token;
  token.place = _source.place();
  token.kind = Detail::kindOf(first, isWord);
  if (token.kind != Token::Kind::Text)
  {
    _source.take();
  }
  else if (first == '\'' || first == '"')
  {
    token.isQuoted = true;
    token.text = _quoted(token.place);
  }
  else
  {
    token.text = _unquoted(isWord);
  }
  return token;
}

void Lexer::_skipBlanks()
{
  for (int byte = _source.peek(); Detail::isBlank(byte) || Detail::beginsComment(byte);
       byte = _source.peek())
  {
    Detail::isBlank(byte) ? void(_source.take()) : _skipComment();
  }
}

void Lexer::_skipComment()
{
  const Place place = _source.place();
  const char open = static_cast<char>(_source.take());
  const char close = open == '[' ? ']' : '}';
  ++_comments;
  for (std::size_t depth = 1; depth > 0;)
  {
    const int byte = _source.take();
    if (byte == Source::end)
    {
      throw BadText(place, std::string("the '") + open + "' is never closed");
    }
    depth += byte == open ? 1 : 0;
    depth -= byte == close ? 1 : 0;
  }
}

std::string Lexer::_quoted(const Place& place)
{
  const int quote = _source.take();
  std::string text;
  while (true)
  {
    const int byte = _source.take();
    if (byte == Source::end)
    {
      throw BadText(place,
                    std::string("the quote ") + static_cast<char>(quote) + " is never closed");
    }
    if (byte == quote && _source.peek() != quote)
    {
      return text;
    }
    if (byte == quote)
    {
      _source.take(); // doubled, it stands for itself
    }
    text += static_cast<char>(byte);
  }
}

std::string Lexer::_unquoted(bool isWord)
{
  std::string text;
  while (Detail::kindOf(_source.peek(), isWord) == Token::Kind::Text)
  {
    text += static_cast<char>(_source.take());
    const int byte = _source.peek();
    if (!Detail::isBlank(byte) && !Detail::beginsComment(byte))
    {
      continue;
    }
    _skipBlanks();
    if (isWord)
    {
      break;
    }
    const bool goesOn = Detail::kindOf(_source.peek(), isWord) == Token::Kind::Text;
    text += goesOn && Detail::isBlank(byte) ? " " : "";
  }
  return text;
}

} // namespace orvex::convert
