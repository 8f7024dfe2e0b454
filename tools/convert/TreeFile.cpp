#include "convert/TreeFile.h"

#include <boost/algorithm/string/case_conv.hpp>

#include <locale>
#include <string>
#include <vector>

namespace orvex::convert
{
namespace Detail
{
namespace
{

std::string lower(const std::string& text)
{
  return boost::algorithm::to_lower_copy(text, std::locale::classic());
}

} // namespace
} // namespace Detail

std::optional<TreeHeader> TreeFile::next()
{
  if (_trees == 0 && _lexer.peek() == '#')
  {
    _readMark();
  }
  TreeHeader header;
  if (_isNexus ? !_toTreeOfBlock(header) : _lexer.peek() == Source::end)
  {
    return std::nullopt;
  }
  header.number = ++_trees;
  return header;
}

void TreeFile::_readMark()
{
  const Token mark = _lexer.nextWord();
  if (Detail::lower(mark.text) != "#nexus")
  {
    throw BadText(mark.place, "A tree or #NEXUS was expected");
  }
  _isNexus = true;
}

bool TreeFile::_toTreeOfBlock(TreeHeader& header)
{
  for (Token token = _lexer.nextWord(); token.kind != Token::Kind::End; token = _lexer.nextWord())
  {
    const std::string command = Detail::lower(token.text);
    if (_block == "trees" && (command == "tree" || command == "utree"))
    {
      _readHeader(header);
      return true;
    }
    if (token.kind == Token::Kind::Text)
    {
      _readCommand(command);
    }
    else if (token.kind != Token::Kind::Semicolon)
    {
      _skipCommand();
    }
  }
  return false;
}

void TreeFile::_readCommand(const std::string& command)
{
  if (command == "begin")
  {
    _block = Detail::lower(_expectWord("The name of a block").text);
    _translation = _numbers;
  }
  else if (command == "end" || command == "endblock")
  {
    _block.clear();
  }
  else if (command == "translate" && _block == "trees")
  {
    return _readTranslation();
  }
  else if (command == "taxlabels")
  {
    return _readTaxonLabels();
  }
  _skipCommand();
}

void TreeFile::_readTranslation()
{
  while (true)
  {
    Token key = _lexer.nextWord();
    if (key.kind == Token::Kind::Semicolon)
    {
      return;
    }
    const Token name = _lexer.next();
    if (key.kind != Token::Kind::Text || name.kind != Token::Kind::Text)
    {
      throw BadText(key.place, "A short name and the name that it stands for were expected");
    }
    _translation[key.text] = name.text;
    const Token end = _lexer.nextWord();
    if (end.kind == Token::Kind::Semicolon)
    {
      return;
    }
    if (end.kind != Token::Kind::Comma)
    {
      throw BadText(end.place, "',' or ';' was expected");
    }
  }
}

void TreeFile::_readTaxonLabels()
{
  std::vector<std::string> labels;
  for (Token token = _lexer.nextWord(); token.kind == Token::Kind::Text; token = _lexer.nextWord())
  {
    labels.push_back(token.text);
    _numbers[std::to_string(labels.size())] = token.text;
  }
  for (const std::string& label : labels)
  {
    _numbers.erase(label); // a taxon whose name is a number stands for itself
  }
}

void TreeFile::_readHeader(TreeHeader& header)
{
  Token name = _expectWord("The name of a tree");
  if (!name.isQuoted && name.text[0] == '*')
  {
    header.isDefault = true;
    name = name.text.size() > 1 ? Token{name.kind, name.text.substr(1), name.place, false}
                                : _expectWord("The name of a tree");
  }
  header.name = name.text;
  const Token equals = _lexer.nextWord();
  if (equals.kind != Token::Kind::Equals)
  {
    throw BadText(equals.place, "'=' was expected behind the name of a tree");
  }
}

void TreeFile::_skipCommand()
{
  Token token = _lexer.nextWord();
  while (token.kind != Token::Kind::Semicolon && token.kind != Token::Kind::End)
  {
    token = _lexer.nextWord();
  }
}

Token TreeFile::_expectWord(const char* what)
{
  Token token = _lexer.nextWord();
  if (token.kind != Token::Kind::Text || token.text.empty())
  {
    throw BadText(token.place, std::string(what) + " was expected");
  }
  return token;
}

} // namespace orvex::convert
