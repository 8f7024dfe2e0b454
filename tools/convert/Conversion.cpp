#include "convert/Conversion.h"

#include "convert/TreeFile.h"

#include <ostream>
#include <stdexcept>
#include <vector>

namespace orvex::convert
{
namespace Detail
{
namespace
{

std::string counted(std::size_t number, const std::string& what)
{
  return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

std::string joined(const std::vector<std::string>& parts, const std::string& between)
{
  std::string result;
  for (const std::string& part : parts)
  {
    result += (result.empty() ? "" : between) + part;
  }
  return result;
}

/// Says of each tree of a file whether it is the wanted one so far.
class Choice
{
public:
  explicit Choice(const std::string& wanted) : _wanted(wanted) {}

  bool takes(const TreeHeader& tree)
  {
    const bool taken = _wanted.empty()
                           ? tree.number == 1 || (tree.isDefault && !_hasDefault)
                           : std::to_string(tree.number) == _wanted || tree.name == _wanted;
    _hasDefault = _hasDefault || tree.isDefault;
    return taken;
  }

private:
  std::string _wanted;
  bool _hasDefault = false;
};

} // namespace
} // namespace Detail

std::string Conversion::report() const
{
  std::vector<std::string> leftOut;
  if (comments > 0)
  {
    leftOut.push_back(Detail::counted(comments, "comment"));
  }
  if (trees > 1)
  {
    leftOut.push_back(std::to_string(trees - 1) + " of " + Detail::counted(trees, "tree"));
  }
  std::vector<std::string> parts;
  if (!leftOut.empty())
  {
    parts.push_back("left out " + Detail::joined(leftOut, " and "));
  }
  if (changedNames > 0)
  {
    parts.push_back("changed " + Detail::counted(changedNames, "name"));
  }
  return Detail::joined(parts, "; ");
}

Conversion convert(Source& source, const Request& request)
{
  TreeFile file(source);
  Detail::Choice choice(request.tree);
  Conversion result;
  while (const std::optional<TreeHeader> header = file.next())
  {
    Names names(request.keepsLetters);
    const bool isTaken = choice.takes(*header);
    TreeText tree(file.lexer(), isTaken ? &names : nullptr, file.translation());
    tree.read();
    ++result.trees;
    if (isTaken)
    {
      result.text = tree.text();
      result.changedNames = names.changed();
    }
  }
  result.comments = file.lexer().comments();
  if (result.trees == 0)
  {
    throw std::runtime_error("there is no tree in it");
  }
  if (result.text.empty())
  {
    throw std::runtime_error("there is no tree \"" + request.tree + "\" in it, of " +
                             Detail::counted(result.trees, "tree"));
  }
  return result;
}

void list(Source& source, std::ostream& out)
{
  TreeFile file(source);
  while (const std::optional<TreeHeader> header = file.next())
  {
    TreeText tree(file.lexer(), nullptr, file.translation());
    tree.read();
    out << header->number << '\t' << tree.leaves() << '\t' << (header->isDefault ? "*" : "")
        << header->name << '\n';
  }
}

} // namespace orvex::convert
