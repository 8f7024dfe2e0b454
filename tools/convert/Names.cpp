#include "convert/Names.h"

#include <unicode/translit.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <stdexcept>

namespace orvex::convert
{
namespace Detail
{
namespace
{

bool isAscii(const std::string& text)
{
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

icu::UnicodeString decode(const std::string& text)
{
  UErrorCode error = U_ZERO_ERROR;
  u_strFromUTF8(nullptr, 0, nullptr, text.data(), static_cast<int32_t>(text.size()), &error);
  return error == U_INVALID_CHAR_FOUND
             ? icu::UnicodeString(text.data(), static_cast<int32_t>(text.size()), "ISO-8859-1")
             : icu::UnicodeString::fromUTF8(text);
}

std::string encode(const icu::UnicodeString& text)
{
  std::string result;
  text.toUTF8String(result);
  return result;
}

std::string trim(const std::string& text)
{
  const std::size_t begin = text.find_first_not_of(' ');
  return begin == std::string::npos ? ""
                                    : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

} // namespace
} // namespace Detail

struct Names::Letters
{
  Letters()
  {
    UErrorCode error = U_ZERO_ERROR;
    toAscii.reset(
        icu::Transliterator::createInstance("Any-Latin; Latin-ASCII", UTRANS_FORWARD, error));
    if (U_FAILURE(error))
    {
      throw std::runtime_error("letters beyond ASCII can't be converted on this system");
    }
  }

  std::unique_ptr<icu::Transliterator> toAscii;
};

Names::Names(bool keepsLetters) : _keepsLetters(keepsLetters) {}

Names::~Names() = default;

std::string Names::toViewer(std::string name)
{
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
  name = Detail::trim(name);
  std::string result = Detail::isAscii(name) ? name : _withoutLetters(name);
  std::replace_if(
      result.begin(), result.end(),
      [](char c) { return c == '(' || c == ')' || c == ',' || c == ':'; }, '_');
  _changed += result != name ? 1 : 0;
  return result;
}

std::string Names::_withoutLetters(const std::string& name)
{
  icu::UnicodeString text = Detail::decode(name);
  if (_keepsLetters)
  {
    return Detail::encode(text);
  }
  if (!_letters)
  {
    _letters = std::make_unique<Letters>();
  }
  _letters->toAscii->transliterate(text);
  for (int32_t i = 0; i < text.length(); ++i)
  {
    if (text.charAt(i) >= 0x80)
    {
      text.replace(i, U16_IS_LEAD(text.charAt(i)) ? 2 : 1, "?");
    }
  }
  return Detail::encode(text);
}

} // namespace orvex::convert
