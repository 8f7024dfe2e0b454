#include "convert/TreeText.h"

#include <boost/lexical_cast/try_lexical_convert.hpp>

namespace orvex::convert
{
namespace Detail
{
namespace
{

std::string nameOf(const Token& token)
{
  switch (token.kind)
  {
  case Token::Kind::Open:
    return "'('";
  case Token::Kind::Close:
    return "')'";
  case Token::Kind::Comma:
    return "','";
  case Token::Kind::Colon:
    return "':'";
  case Token::Kind::Semicolon:
    return "';'";
  case Token::Kind::Equals:
    return "'='";
  case Token::Kind::End:
    return "the end of the text";
  case Token::Kind::Text:
    break;
  }
  return "\"" + token.text.substr(0, 40) + "\"";
}

[[noreturn]] void refuse(const Token& token, const std::string& expected)
{
  throw BadText(token.place, expected + " was expected, not " + nameOf(token));
}

} // namespace
} // namespace Detail

void TreeText::read()
{
  while (!_isComplete)
  {
    _accept(_lexer.next());
  }
}

void TreeText::_accept(const Token& token)
{
  switch (token.kind)
  {
  case Token::Kind::Open:
    return _open(token);
  case Token::Kind::Comma:
  case Token::Kind::Close:
    return _endItem(token);
  case Token::Kind::Colon:
    if (_after == After::Colon || _after == After::Length)
    {
      Detail::refuse(token, _after == After::Colon ? "A branch length" : "',' or ')'");
    }
    _after = After::Colon;
    return;
  case Token::Kind::Text:
    return _after == After::Colon ? _length(token) : _label(token);
  default:
    return _finish(token);
  }
}

void TreeText::_open(const Token& token)
{
  if (_after != After::Start)
  {
    Detail::refuse(token, _depth == 0 ? "';'" : "',' or ')'");
  }
  ++_depth;
  _write("(");
}

void TreeText::_endItem(const Token& token)
{
  if (_after == After::Colon)
  {
    Detail::refuse(token, "A branch length");
  }
  if (_depth == 0)
  {
    Detail::refuse(token, _after == After::Start ? "'('" : "';'");
  }
  _leaves += _isGroup ? 0 : 1;
  const bool closes = token.kind == Token::Kind::Close;
  _write(closes ? ")" : ",");
  _depth -= closes ? 1 : 0;
  _isGroup = closes;
  _after = closes ? After::Group : After::Start;
}

void TreeText::_label(const Token& token)
{
  if (_after != After::Start && _after != After::Group)
  {
    Detail::refuse(token, _depth == 0 ? "';'" : "',' or ')'");
  }
  _after = After::Label;
  if (!_names)
  {
    return;
  }
  // Short names stand for leaves only. At a group the same text is a support value.
  const auto known = _isGroup ? _translation.end() : _translation.find(token.text);
  _write(_names->toViewer(known == _translation.end() ? token.text : known->second));
}

void TreeText::_length(const Token& token)
{
  double value = 0.0;
  if (!boost::conversion::try_lexical_convert(token.text, value))
  {
    Detail::refuse(token, "A branch length");
  }
  _after = After::Length;
  _write(":");
  _write(std::string_view(token.text).substr(token.text[0] == '+' ? 1 : 0));
}

void TreeText::_finish(const Token& token)
{
  if (_after == After::Colon)
  {
    Detail::refuse(token, "A branch length");
  }
  if (_depth > 0)
  {
    Detail::refuse(token, "',' or ')'");
  }
  if (_after == After::Start)
  {
    Detail::refuse(token, "A tree");
  }
  if (!_isGroup)
  {
    // The viewer knows a leaf by the group that it lies in.
    _leaves = 1;
    _text = _names ? "(" + _text + ")" : "";
  }
  _write(";\n");
  _isComplete = true;
}

void TreeText::_write(std::string_view text)
{
  if (_names)
  {
    _text += text;
  }
}

} // namespace orvex::convert
