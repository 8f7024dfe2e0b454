#include "render/gl/font/Font.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

constexpr FT_UInt pixelSize = 32;

// FreeType's metrics are fixed point numbers with six binary places.
float toPixels(FT_Pos value)
{
  return static_cast<float>(value) * 0.015625f;
}

// A byte above 127 is a negative character, which no face knows: it shows the face's missing glyph.
FT_ULong toCode(char c)
{
  return static_cast<FT_ULong>(static_cast<signed char>(c));
}

// Faces without outlines have their own bitmaps, with a bit or a colour for each pixel.
bool isCoverage(const FT_Bitmap& bitmap)
{
  return bitmap.rows == 0 || (bitmap.pixel_mode == FT_PIXEL_MODE_GRAY && bitmap.num_grays == 256);
}

void copyBitmap(const FT_Bitmap& bitmap, Glyph& glyph)
{
  for (unsigned int row = 0; row < bitmap.rows; ++row)
  {
    const unsigned char* source = bitmap.buffer + static_cast<std::ptrdiff_t>(row) * bitmap.pitch;
    std::copy_n(source, bitmap.width, glyph.buffer() + std::size_t(row) * bitmap.width);
  }
}

} // namespace
} // namespace Detail

Font::Font(FT_Face face) : _face(face), _kernings(std::size_t(256) * 256)
{
  FT_Set_Char_Size(_face, 0, 1024, 300, 300);
  // This call sets the size that is used; the one before it has no effect.
  FT_Set_Pixel_Sizes(_face, Detail::pixelSize, Detail::pixelSize);
}

Font::~Font() noexcept(false)
{
  _glyphs.fill(nullptr);
  FT_Done_Face(_face);
}

Glyph* Font::_loadGlyph(char c)
{
  if (FT_Load_Char(_face, Detail::toCode(c), FT_LOAD_RENDER | FT_LOAD_NO_BITMAP) != 0 ||
      !Detail::isCoverage(_face->glyph->bitmap))
  {
    return nullptr;
  }
  const FT_GlyphSlot slot = _face->glyph;
  const FT_Glyph_Metrics& metrics = slot->metrics;
  const boost::intrusive_ptr<Glyph> glyph(new Glyph(slot->bitmap.width, slot->bitmap.rows));
  Detail::copyBitmap(slot->bitmap, *glyph);
  glyph->setHorizontalBearing(Detail::toPixels(metrics.horiBearingX),
                              Detail::toPixels(metrics.horiBearingY - metrics.height));
  glyph->horizontalAdvance(Detail::toPixels(metrics.horiAdvance));
  _glyphs[static_cast<unsigned char>(c)] = glyph;
  return glyph.get();
}

Font::Kerning Font::_loadKerning(char left, char right) const
{
  const FT_UInt leftIndex = FT_Get_Char_Index(_face, Detail::toCode(left));
  const FT_UInt rightIndex = FT_Get_Char_Index(_face, Detail::toCode(right));
  FT_Vector delta{0, 0};
  FT_Get_Kerning(_face, leftIndex, rightIndex, FT_KERNING_DEFAULT, &delta);
  return {Detail::toPixels(delta.x), Detail::toPixels(delta.y)};
}

} // namespace orvex::render::gl
