#include "tree/service/JsonSize.h"

#include "tree/json/json_spirit.h"

#include <algorithm>
#include <string>

namespace orvex
{
namespace Detail
{
namespace
{

using Value = json_spirit::Value_impl<json_spirit::Config_map<std::string>>;

// A key is a node of a map, which has four pointers beside it, and the allocator's rounding.
constexpr std::size_t bytesPerKey = sizeof(Value::Object::value_type) + 4 * sizeof(void*) + 8;
// Each object but the first is an element of a list. A list grows to twice its size, so that half
// as much may be unused.
constexpr std::size_t bytesPerObject = sizeof(Value) + sizeof(Value) / 2;

// Where the string ends that begins before a position: at its second quotation mark.
std::size_t endOfString(std::string_view text, std::size_t position)
{
  while (position < text.size() && text[position] != '"')
  {
    position += text[position] == '\\' ? 2 : 1;
  }
  return std::min(position, text.size());
}

bool isEmptyList(std::string_view text, std::size_t position)
{
  const std::size_t next = text.find_first_not_of(" \t\r\n", position + 1);
  return next != std::string_view::npos && text[next] == ']';
}

} // namespace
} // namespace Detail

JsonSize sizeOfJson(std::string_view text)
{
  JsonSize size;
  std::size_t objects = 0;
  std::size_t keys = 0;
  for (std::size_t i = 0; i < text.size(); ++i)
  {
    if (text[i] == '"')
    {
      const std::size_t end = Detail::endOfString(text, i + 1);
      size.tree.addName(end - i - 1);
      size.tree.addLabel(end - i - 1);
      i = end;
      continue;
    }
    objects += text[i] == '{' ? 1 : 0;
    keys += text[i] == ':' ? 1 : 0;
    size.tree.leaves += text[i] == '[' && Detail::isEmptyList(text, i) ? 1 : 0;
  }
  size.tree.nodes = std::max(objects, std::size_t(1)) - 1; // the first object holds the root
  size.tree.shownNodes = size.tree.nodes;
  size.tree.shownLeaves = size.tree.leaves;
  size.valueBytes =
      objects * Detail::bytesPerObject + keys * Detail::bytesPerKey + size.tree.nameBytes;
  return size;
}

} // namespace orvex
