#include "tree/newick/NewickReader.h"

#include "foundation/progress/Work.h"
#include "tree/model/OpeningStages.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeMemory.h"
#include "tree/model/TreeSize.h"
#include "tree/newick/BadBranchLength.h"
#include "tree/newick/NewickFile.h"
#include "tree/newick/NodeCount.h"

#include <boost/algorithm/string/predicate.hpp>
#include <boost/lexical_cast.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace orvex
{
namespace Detail
{
namespace
{

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

constexpr bool isStructural(char c)
{
  return c == '(' || c == ')' || c == ',';
}

// Files of this other format often have the ending of a Newick file.
std::string reasonInFormat(const std::string& contents)
{
  const char* const blanksAndByteOrderMark = " \t\r\xEF\xBB\xBF";
  const std::size_t start = contents.find_first_not_of(blanksAndByteOrderMark);
  const bool isNexus = start != std::string::npos &&
                       boost::algorithm::istarts_with(contents.substr(start, 6), "#NEXUS");
  return isNexus ? "This is a NEXUS file; orvex-convert makes Newick of it." : "";
}

// Before the tree is made. Only for a large one, since to ask takes longer than to read a small
// one. The text is in memory, and gives its place before the tree is shown.
void requireMemoryFor(const TreeSize& size, std::size_t textSize, bool isShown)
{
  constexpr std::size_t leastToAsk = 100'000;
  if (size.nodes >= leastToAsk)
  {
    requireMemory((isShown ? "To show the tree's " : "To read the tree's ") +
                      std::to_string(size.nodes) + " nodes",
                  isShown ? memoryToReadAndShow(size, textSize, textSize) : memoryOfTree(size));
  }
}

// A comma or parenthesis outside of all groups.
struct Misplaced
{
  std::string what;
};

// An item whose text after the ":" is no number.
struct BadItem
{
  std::string text;
};

// Where the length of an item begins that ends before a position; an empty one at its ":". There
// may be "(" inside the item, which are no part of its text.
std::size_t beginOfLength(const std::string& contents, std::size_t end, const std::string& item)
{
  const std::size_t size = item.size() - item.find(':') - 1;
  std::size_t begin = end;
  for (std::size_t left = std::max<std::size_t>(size, 1); left > 0;)
  {
    --begin;
    left -= contents[begin] == '(' ? 0 : 1;
  }
  return begin;
}

} // namespace
} // namespace Detail

boost::shared_ptr<Tree> NewickReader::operator()(const std::string& filename)
{
  const NewickFile file(filename);
  return _parse(file.read(), [&file](std::size_t offset) { return file.placeOf(offset); });
}

boost::shared_ptr<Tree> NewickReader::parseContents(const std::string& contents)
{
  return _parse(contents, [](std::size_t offset) { return TextPlace{1, offset + 1}; });
}

boost::shared_ptr<Tree> NewickReader::_parse(const std::string& contents, const PlaceOf& placeOf)
{
  // The nodes on the stack are those of the tree that was read before.
  if (_depth != 0 || !_nodeStack.empty())
  {
    throw std::logic_error("A Newick reader whose last text was not complete reads no other.");
  }
  _tree.reset();
  const TreeSize size = sizeOfNewick(contents);
  Detail::requireMemoryFor(size, contents.size(), _isShown);
  _expectedNodes = size.nodes;
  std::size_t position = 0;
  try
  {
    _readEvents(contents, position);
  }
  catch (const Detail::Misplaced& e)
  {
    const TextPlace place = placeOf(position);
    const std::string reason = Detail::reasonInFormat(contents);
    throw std::runtime_error(e.what + ": line " + std::to_string(place.line) + ", column " +
                             std::to_string(place.column) + "." +
                             (reason.empty() ? "" : " " + reason));
  }
  catch (const Detail::BadItem& e)
  {
    const std::size_t begin = Detail::beginOfLength(contents, position, e.text);
    throw BadBranchLength(e.text, placeOf(begin), Detail::reasonInFormat(contents));
  }
  return _tree;
}

void NewickReader::_readEvents(const std::string& contents, std::size_t& position)
{
  Kelmar::Progress::Work work(OpeningStages::reading, contents.size(), NewickFile::shareOfReading);
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
    throw Detail::Misplaced{"Unexpected comma encountered"};
  }
  _finishItem(before);
  _childClosed = false;
}

void NewickReader::_onCloseParentheses(std::string_view before)
{
  --_depth;
  if (_nodeStack.empty())
  {
    throw Detail::Misplaced{"Unexcepted ')' encountered"};
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
    throw Detail::BadItem{std::string(token)};
  }
  _tree->setDistanceToParent(id, distance);
}

} // namespace orvex
