#pragma once

#include "foundation/counted/Referenced.h"
#include "render/gl/font/Glyph.h"

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

using FT_Face = struct FT_FaceRec_*;

namespace orvex::render::gl
{

/// A face with its glyphs at 32 pixels, rendered as they are asked for. A character is one byte.
/// Must be deleted before FreeType::destroy().
class Font : public Kelmar::Base::Referenced, private boost::noncopyable
{
public:
  /// Takes the ownership of the face.
  explicit Font(FT_Face face);
  ~Font() noexcept(false) override;

  /// \return the glyph, owned by the font, or null if the face can't give it as grey coverage
  Glyph* getGlyph(char c)
  {
    Glyph* const known = _glyphs[static_cast<unsigned char>(c)].get();
    return known ? known : _loadGlyph(c);
  }

  /// How far \p right moves when it follows \p left, in pixels.
  void getKerning(char left, char right, double& x, double& y)
  {
    Kerning& known = _kernings[std::size_t(static_cast<unsigned char>(left)) << 8 |
                               static_cast<unsigned char>(right)];
    if (std::isnan(known.x))
    {
      known = _loadKerning(left, right);
    }
    x = known.x;
    y = known.y;
  }

private:
  /// In pixels, which have six binary places. Not a number until the pair was first asked for.
  struct Kerning
  {
    float x = std::numeric_limits<float>::quiet_NaN();
    float y = 0.0f;
  };

  Glyph* _loadGlyph(char c);
  Kerning _loadKerning(char left, char right) const;

  // A scene asks for a glyph and a pair for each character of each label: tables, by byte.
  FT_Face _face;
  std::array<boost::intrusive_ptr<Glyph>, 256> _glyphs;
  std::vector<Kerning> _kernings;
};

} // namespace orvex::render::gl
