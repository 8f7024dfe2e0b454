#include "tree/newick/NewickReader.h"

#include "foundation/progress/Work.h"
#include "tree/model/Tree.h"
#include "tree/newick/BadBranchLength.h"

#include <boost/filesystem/operations.hpp>
#include <boost/lexical_cast.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <new>
#include <stdexcept>
#include <string_view>

namespace orvex
{
namespace Detail
{
namespace
{

using Kelmar::Progress::Stage;
using Kelmar::Progress::Work;

// The number that boost::lexical_cast gives, but faster. For numbers of these characters the two
// give the same value; all other texts, and all errors, are left to lexical_cast.
// False if the text is no number.
bool toDistance(std::string_view text, double& value)
{
  const auto isPlain = [](char c)
  { return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == 'e' || c == 'E'; };
  const char* end = text.data() + text.size();
  if (std::all_of(text.data(), end, isPlain))
  {
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error == std::errc() && stop == end)
    {
      return true;
    }
  }
  return boost::conversion::try_lexical_convert(std::string(text), value);
}

// Which share of the reading it takes to bring the bytes of the file into memory.
constexpr double shareOfBytes = 0.1;

constexpr bool isStructural(char c)
{
  return c == '(' || c == ')' || c == ',';
}

// The number of nodes that a text of one tree becomes: each "(" is a node, and each item that is
// none is a leaf. A group has one item more than it has commas.
std::size_t countNodes(const std::string& contents)
{
  const auto count = [&contents](char c)
  { return static_cast<std::size_t>(std::count(contents.begin(), contents.end(), c)); };
  return count('(') + count(',') + 1;
}

std::string readLines(const std::string& filename)
{
  const std::size_t size = boost::filesystem::file_size(boost::filesystem::path(filename));
  std::string contents;
  contents.reserve(size);

  std::ifstream in(filename, std::ios_base::in);
  if (!in.is_open())
  {
    throw std::runtime_error("Could not open file.");
  }
  // So that a read error throws; without this the stream only stops.
  in.exceptions(std::ios_base::badbit);
  // In pieces and not in lines: most trees are one line, which would be in memory twice.
  std::array<char, 65536> piece;
  Work work(Stage::Reading, size, 0.0, shareOfBytes);
  while (in.read(piece.data(), piece.size()) || in.gcount() > 0)
  {
    const char* end = piece.data() + in.gcount();
    for (const char* line = piece.data(); line < end;)
    {
      const char* lineEnd = std::find(line, end, '\n');
      contents.append(line, lineEnd);
      line = lineEnd + 1;
    }
    work.done(static_cast<std::size_t>(in.gcount()));
  }
  return contents;
}

// After a read error, or without memory, the text is only a part of the tree and is not used.
std::string read(const std::string& filename)
{
  try
  {
    return readLines(filename);
  }
  catch (const std::ios_base::failure&)
  {
    throw std::runtime_error("Could not read file.");
  }
  catch (const std::bad_alloc&)
  {
    throw std::runtime_error("There is not enough memory for the text of the file.");
  }
}

// The begin of a length that ends before a position. An item may contain "(", which are no part of
// its text.
std::size_t beginOfLength(const std::string& contents, std::size_t end, std::size_t size)
{
  std::size_t begin = end;
  for (std::size_t left = size; left > 0;)
  {
    --begin;
    left -= contents[begin] == '(' ? 0 : 1;
  }
  return begin;
}

// Reads the file again to count its lines, so that reading a correct file takes no time for it.
void placeInFile(BadBranchLength& error, const std::string& filename)
{
  std::ifstream in(filename, std::ios_base::in);
  std::size_t number = 1;
  std::size_t before = 0;
  for (std::string line; std::getline(in, line) && before + line.size() <= error.offset(); ++number)
  {
    before += line.size();
  }
  error.place(error.offset(), number, error.offset() - before + 1);
}

} // namespace
} // namespace Detail

boost::shared_ptr<Tree> NewickReader::operator()(const std::string& filename)
{
  const std::string contents = Detail::read(filename);
  try
  {
    return parseContents(contents);
  }
  catch (BadBranchLength& e)
  {
    Detail::placeInFile(e, filename);
    throw;
  }
}

boost::shared_ptr<Tree> NewickReader::parseContents(const std::string& contents)
{
  // The nodes on the stack are those of the tree that was read before.
  if (_depth != 0 || !_nodeStack.empty())
  {
    throw std::logic_error("A Newick reader whose last text was not complete reads no other.");
  }
  _tree.reset();
  _expectedNodes = Detail::countNodes(contents);
  std::size_t position = 0;
  Detail::Work work(Detail::Stage::Reading, contents.size(), Detail::shareOfBytes);
  try
  {
    for (; position < contents.size(); ++position)
    {
      const char* text = contents.data() + position;
      const char* textEnd = std::find_if(text, contents.data() + contents.size(),
                                         [](char c) { return Detail::isStructural(c); });
      const auto size = static_cast<std::size_t>(textEnd - text);
      position += size;
      work.done(size + 1);
      _onStructure(*textEnd, std::string_view(text, size)); // the text's own end is a null byte
    }
  }
  catch (BadBranchLength& e)
  {
    const std::size_t begin = Detail::beginOfLength(contents, position, e.length().size());
    e.place(begin, 1, begin + 1);
    throw;
  }
  return _tree;
}

void NewickReader::_onStructure(char c, std::string_view before)
{
  switch (c)
  {
  case '(':
    _onOpenParentheses(before);
    break;
  case ')':
    _onCloseParentheses(before);
    break;
  case ',':
    _onComma(before);
    break;
  default: // the end of the text
    break;
  }
}

void NewickReader::_onOpenParentheses(std::string_view before)
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
    _carried.clear();
    _tree->setRootNodeId(id);
  }
  else
  {
    _carried += before;
    ++_depth;
    _tree->setRelationship(_nodeStack.top(), id);
  }
  _nodeStack.push(id);
  _childClosed = false;
}

void NewickReader::_onComma(std::string_view before)
{
  if (_nodeStack.empty())
  {
    throw std::runtime_error("Unexpected comma encountered");
  }
  _finishItem(before);
  _childClosed = false;
}

void NewickReader::_onCloseParentheses(std::string_view before)
{
  --_depth;
  if (_nodeStack.empty())
  {
    throw std::runtime_error("Unexcepted ')' encountered");
  }
  _finishItem(before);
  _nodeStack.pop();
  _childClosed = true;
}

// The token names the child that was just closed; without one it is a new leaf.
void NewickReader::_finishItem(std::string_view token)
{
  if (!_carried.empty())
  {
    _carried += token;
    token = _carried;
  }
  const int parent = _nodeStack.top();
  if (_childClosed)
  {
    _parseAnnotation(_tree->getChild(parent, _tree->getNumChildren(parent) - 1), token);
  }
  else
  {
    const int id = _tree->createNode();
    _parseAnnotation(id, token);
    _tree->setRelationship(parent, id);
  }
  _carried.clear();
}

void NewickReader::_parseAnnotation(int id, std::string_view token)
{
  const std::size_t colon = token.find(':');
  _tree->setName(id, std::string(token.substr(0, colon)));
  if (colon == std::string_view::npos)
  {
    return;
  }
  double distance = 0.0;
  if (!Detail::toDistance(token.substr(colon + 1), distance))
  {
    throw BadBranchLength(std::string(token));
  }
  _tree->setDistanceToParent(id, distance);
}

} // namespace orvex
