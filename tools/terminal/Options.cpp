#include "terminal/Options.h"

#include <getopt.h>

#include <charconv>
#include <system_error>

namespace orvex::terminal
{

std::string refusedOption(char** argv, int found)
{
  // It stays at an argument of several letters until it has seen the last one.
  const char* const next = argv[optind];
  const bool isInside = optopt != 0 && next && next[0] == '-' && next[1] == optopt;
  const std::string argument = isInside ? next : argv[optind - 1];
  if (found == ':')
  {
    return argument + " needs a value.";
  }
  return "'" + argument + "' is no option." + hintForFile(argument);
}

std::string hintForFile(const std::string& argument)
{
  const bool isFile = argument.size() > 2 && argument[0] == '-' && argument[1] != '-' &&
                      argument.find('.') != std::string::npos;
  return isFile ? " For the file of that name write './" + argument + "'." : "";
}

std::optional<std::uint32_t> wholeNumber(const std::string& text, std::uint32_t least,
                                         std::uint32_t most)
{
  std::uint32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  const bool isNumber = error == std::errc() && stop == end;
  return isNumber && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

} // namespace orvex::terminal
