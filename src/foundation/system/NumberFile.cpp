#include "foundation/system/NumberFile.h"

#include <fstream>

namespace Kelmar::System
{
namespace Detail
{
namespace
{

std::optional<std::size_t> readNumber(std::istream& in)
{
  std::size_t number = 0;
  return in >> number ? std::optional<std::size_t>(number) : std::nullopt;
}

} // namespace
} // namespace Detail

std::optional<std::size_t> firstNumber(const std::string& file)
{
  std::ifstream in(file);
  return Detail::readNumber(in);
}

std::optional<std::size_t> numberAfter(const std::string& file, const std::string& word)
{
  std::ifstream in(file);
  for (std::string found; in >> found;)
  {
    if (found == word)
    {
      return Detail::readNumber(in);
    }
  }
  return std::nullopt;
}

} // namespace Kelmar::System
