#pragma once

#include "foundation/Referenced.h"
#include "render/gl/Glyph.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <map>

using FT_Face = struct FT_FaceRec_*;

namespace orvex::render::gl
{

/// A face with its glyphs at 32 pixels, rendered as they are asked for. A character is one byte.
/// Must die before FreeType::destroy().
class Font : public Kelmar::Base::Referenced
{
public:
  /// Takes the face over.
  explicit Font(FT_Face face);

  /// \return the glyph, owned by the font, or null if the face can't give it
  Glyph* getGlyph(char c);

  /// How far \p right moves when it follows \p left, in pixels.
  void getKerning(char left, char right, double& x, double& y);

protected:
  ~Font() noexcept(false) override;

private:
  FT_Face _face;
  std::map<char, boost::intrusive_ptr<Glyph>> _glyphs;
};

} // namespace orvex::render::gl
