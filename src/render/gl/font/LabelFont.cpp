#include "render/gl/font/LabelFont.h"

#include "render/gl/font/Font.h"
#include "render/gl/font/FontFile.h"
#include "render/gl/font/FreeType.h"

namespace orvex::render::gl
{

boost::intrusive_ptr<Font> loadLabelFont()
{
  FreeType* library = FreeType::instance();
  boost::intrusive_ptr<Font> font(library->createFont("/Library/Fonts/Arial.ttf"));
  if (font)
  {
    return font;
  }
  const FontFile file = systemFontFile("Arial");
  return library->createFont(file.path, file.index);
}

} // namespace orvex::render::gl
