#include "tree/newick/BadBranchLength.h"

#include <cctype>
#include <typeinfo>

namespace orvex
{
namespace Detail
{
namespace
{

// In quotes, since a blank at the end is a frequent reason. Cut, since it may be a whole clade.
std::string shown(const std::string& text)
{
  constexpr std::size_t most = 60;
  std::string out = "\"";
  for (const char c : text.substr(0, most))
  {
    const bool isControl = std::iscntrl(static_cast<unsigned char>(c)) != 0;
    out += c == '\r' ? "\\r" : std::string(1, isControl ? '?' : c);
  }
  return out + (text.size() > most ? "..." : "") + "\"";
}

// Other Newick readers accept quotes and comments, so a file may have them.
bool hasQuoteOrComment(const std::string& item)
{
  const std::size_t start = item.find_first_not_of(" \t\r");
  const bool isQuoted = start != std::string::npos && (item[start] == '\'' || item[start] == '"');
  return isQuoted || item.find('[') != std::string::npos;
}

} // namespace
} // namespace Detail

BadBranchLength::BadBranchLength(const std::string& item)
    : boost::bad_lexical_cast(typeid(std::string), typeid(double)),
      _name(item.substr(0, item.find(':'))),
      _length(item.substr(_name.size() + 1)),
      _isMarkedUp(Detail::hasQuoteOrComment(item))
{
}

void BadBranchLength::place(std::size_t offset, std::size_t line, std::size_t column)
{
  _offset = offset;
  _text = "Line " + std::to_string(line) + ", column " + std::to_string(column) + ": " +
          Detail::shown(_length) + " is no branch length. It follows the name " +
          Detail::shown(_name) + "." +
          (_isMarkedUp ? " Quotes and comments have no meaning in this format." : "");
}

} // namespace orvex
