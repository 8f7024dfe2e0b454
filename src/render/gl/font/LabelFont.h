#pragma once

#include "render/gl/font/FontFile.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex::render::gl
{

class Font;

/// The font of the taxon labels: Arial from its fixed path or, where that file is missing, the font
/// that the system offers for it.
/// \return null if neither can be opened
/// \throws std::runtime_error  if the font library can't start
boost::intrusive_ptr<Font> loadLabelFont();

/// The file of that font, for who draws it by other means; without a path if it can't be opened.
/// \throws std::runtime_error  if the font library can't start
FontFile labelFontFile();

} // namespace orvex::render::gl
