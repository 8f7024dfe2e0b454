#include "tree/NewickReader.h"

#include "tree/Tree.h"

#include <boost/algorithm/string/find.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/lexical_cast.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <stdexcept>

namespace orvex
{
namespace Detail
{

// The number that boost::lexical_cast gives, without the stream that it builds for each. The plain
// forms are those on which the two agree; all else, errors included, is left to lexical_cast.
double toDistance(const std::string& text)
{
  const char* end = text.data() + text.size();
  double value = 0.0;
  if (text.find_first_not_of("0123456789.-eE") == std::string::npos)
  {
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc() && stop == end)
    {
      return value;
    }
  }
  return boost::lexical_cast<double>(text);
}

// Every "(" makes a node, and a group has one item more than it has commas. That is exact for one
// tree; for several it is a little less.
std::size_t expectedNodes(const std::string& contents)
{
  const auto number = [&](char c) { return std::count(contents.begin(), contents.end(), c); };
  return static_cast<std::size_t>(number(',') + number('(') + 1);
}

} // namespace Detail

boost::shared_ptr<Tree> NewickReader::operator()(const std::string& filename)
{
  const boost::filesystem::path path(filename);
  std::string contents;
  contents.reserve(boost::filesystem::file_size(path));

  std::ifstream in(filename, std::ios_base::in);
  if (!in.is_open())
  {
    throw std::runtime_error("Could not open file.");
  }
  std::string line;
  while (std::getline(in, line, '\n'))
  {
    contents += line;
  }
  // A broken disk ends the loop too, and what was read so far is no tree to show.
  if (in.bad())
  {
    throw std::runtime_error("Could not read file.");
  }
  return parseContents(contents);
}

boost::shared_ptr<Tree> NewickReader::parseContents(const std::string& contents)
{
  _tree.reset();
  _expectedNodes = Detail::expectedNodes(contents);
  for (const char c : contents)
  {
    switch (c)
    {
    case '(':
      _onOpenParentheses();
      break;
    case ')':
      _onCloseParentheses();
      break;
    case ',':
      _onComma();
      break;
    default:
      _onCharacter(c);
    }
  }
  return _tree;
}

void NewickReader::_onCharacter(char c)
{
  _token.push_back(c);
}

void NewickReader::_onOpenParentheses()
{
  if (!_tree)
  {
    _tree = boost::make_shared<Tree>();
    _tree->reserve(_expectedNodes);
  }
  const int id = _tree->createNode();
  if (_depth == 0)
  {
    _depth = 1;
    _token.clear();
    _tree->setRootNodeId(id);
  }
  else
  {
    // The token stays: text before a nested "(" becomes the front of the next name.
    ++_depth;
    _tree->setRelationship(_nodeStack.top(), id);
  }
  _nodeStack.push(id);
  _childClosed = false;
}

void NewickReader::_onComma()
{
  if (_nodeStack.empty())
  {
    throw std::runtime_error("Unexpected comma encountered");
  }
  _finishItem();
  _childClosed = false;
}

void NewickReader::_onCloseParentheses()
{
  --_depth;
  if (_nodeStack.empty())
  {
    throw std::runtime_error("Unexcepted ')' encountered");
  }
  _finishItem();
  _nodeStack.pop();
  _childClosed = true;
}

// The token in hand labels the child just closed, or else it is a leaf.
void NewickReader::_finishItem()
{
  const int parent = _nodeStack.top();
  if (_childClosed)
  {
    _parseAnnotation(_tree->getChild(parent, _tree->getNumChildren(parent) - 1));
  }
  else
  {
    const int id = _tree->createNode();
    _parseAnnotation(id);
    _tree->setRelationship(parent, id);
  }
  _token.clear();
}

void NewickReader::_parseAnnotation(int id)
{
  const std::string token(_token.begin(), _token.end());
  const auto colon = boost::algorithm::find_first(token, ":");
  if (colon.empty())
  {
    _tree->setName(id, token);
    return;
  }
  _tree->setName(id, std::string(token.begin(), colon.begin()));
  _tree->setDistanceToParent(id, Detail::toDistance(std::string(colon.end(), token.end())));
}

} // namespace orvex
