#include "tree/newick/BadBranchLength.h"

#include "tree/newick/TextPlace.h"

#include <boost/algorithm/string/trim.hpp>
#include <boost/lexical_cast/try_lexical_convert.hpp>

#include <algorithm>
#include <cctype>
#include <typeinfo>

namespace orvex
{
namespace Detail
{
namespace
{

const char* const blanks = " \t\r";

std::string trimmed(const std::string& text)
{
  return boost::algorithm::trim_copy_if(text, boost::algorithm::is_any_of(blanks));
}

// The text's first bytes, without half a letter of UTF-8 at the end.
std::string cut(const std::string& text, std::size_t most)
{
  const auto isInsideLetter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
  // No letter has more than three bytes after its first one.
  const std::size_t least = most - 3;
  while (most > least && isInsideLetter(text[most]))
  {
    --most;
  }
  return text.substr(0, most);
}

// In quotes, since a blank at the end is a frequent reason. Cut, since it may be a whole clade.
std::string shown(const std::string& text)
{
  constexpr std::size_t most = 60;
  const bool isLong = text.size() > most;
  std::string out = "\"";
  for (const char c : isLong ? cut(text, most) : text)
  {
    const bool isControl = std::iscntrl(static_cast<unsigned char>(c)) != 0;
    out += c == '\r' ? "\\r" : std::string(1, isControl ? '?' : c);
  }
  return out + (isLong ? "...\"" : "\"");
}

bool isNumber(const std::string& text)
{
  double number = 0.0;
  return boost::conversion::try_lexical_convert(text, number);
}

// Other Newick readers accept blanks, comments, marks and quotes, so a file may have them.
std::string reasonIn(const std::string& name, const std::string& length)
{
  if (isNumber(trimmed(length)))
  {
    return "No blank may stand before or after a number. orvex-convert takes such blanks out.";
  }
  if ((name + length).find_first_of("[]") != std::string::npos)
  {
    return "Comments have no meaning in this format. orvex-convert takes them out.";
  }
  if (length.find_first_of("{}") != std::string::npos)
  {
    return "Marks in braces have no meaning in this format. orvex-convert takes them out.";
  }
  const std::string start = trimmed(name).substr(0, 1);
  if (start == "'" || start == "\"" || length.find_first_of("'\"") != std::string::npos)
  {
    return "Quotes have no meaning in this format. orvex-convert takes them out.";
  }
  return "";
}

std::string textOf(const std::string& item, const TextPlace& place, const std::string& reason)
{
  const std::string name = item.substr(0, item.find(':'));
  const std::string length = item.substr(name.size() + 1);
  const std::string why = reason.empty() ? reasonIn(name, length) : reason;
  return "Line " + std::to_string(place.line) + ", column " + std::to_string(place.column) + ": " +
         shown(length) + " is no branch length. It follows the name " +
         shown(boost::algorithm::trim_left_copy_if(name, boost::algorithm::is_any_of(blanks))) +
         (why.empty() ? "." : ". " + why);
}

} // namespace
} // namespace Detail

BadBranchLength::BadBranchLength(const std::string& item, const TextPlace& place,
                                 const std::string& reason)
    : boost::bad_lexical_cast(typeid(std::string), typeid(double)),
      _text(Detail::textOf(item, place, reason))
{
}

} // namespace orvex
