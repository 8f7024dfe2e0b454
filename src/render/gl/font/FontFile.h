#pragma once

#include <string>

namespace orvex::render::gl
{

/// A font: a file can hold several.
struct FontFile
{
  std::string path;
  long index = 0;
};

/// The scalable font that this system offers for the font family \p family, as Fontconfig decides;
/// without a path if it offers none.
FontFile systemFontFile(const std::string& family);

} // namespace orvex::render::gl
