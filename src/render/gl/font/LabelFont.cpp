#include "render/gl/font/LabelFont.h"

#include "render/gl/font/Font.h"
#include "render/gl/font/FontFile.h"
#include "render/gl/font/FreeType.h"

namespace orvex::render::gl
{

namespace Detail
{
namespace
{

struct LabelFont
{
  boost::intrusive_ptr<Font> font;
  FontFile file;
};

LabelFont open(const FontFile& file)
{
  return {FreeType::instance()->createFont(file.path, file.index), file};
}

LabelFont load()
{
  const LabelFont usual = open({"/Library/Fonts/Arial.ttf"});
  return usual.font ? usual : open(systemFontFile("Arial"));
}

} // namespace
} // namespace Detail

boost::intrusive_ptr<Font> loadLabelFont()
{
  return Detail::load().font;
}

FontFile labelFontFile()
{
  const Detail::LabelFont found = Detail::load();
  return found.font ? found.file : FontFile{};
}

} // namespace orvex::render::gl
