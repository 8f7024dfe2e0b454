#pragma once

#include <string>

namespace orvex::render::gl
{

/// The file that this system offers for the font family \p family, as Fontconfig decides; empty if
/// it offers none.
std::string systemFontFile(const std::string& family);

} // namespace orvex::render::gl
