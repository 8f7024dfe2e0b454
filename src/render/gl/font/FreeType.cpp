#include "render/gl/font/FreeType.h"

#include "render/gl/font/Font.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>
#include <stdexcept>

namespace orvex::render::gl
{

FreeType* FreeType::_instance = nullptr;

FreeType::FreeType()
{
  if (FT_Init_FreeType(&_library) != 0)
  {
    throw std::runtime_error("Could not initialize freetype.");
  }
}

FreeType::~FreeType()
{
  FT_Done_FreeType(_library);
}

FreeType* FreeType::instance()
{
  if (!_instance)
  {
    _instance = new FreeType;
  }
  return _instance;
}

void FreeType::destroy()
{
  delete _instance;
  _instance = nullptr;
}

Font* FreeType::createFont(const std::string& filename, long index)
{
  FT_Face face = nullptr;
  if (FT_New_Face(_library, filename.c_str(), index, &face) != 0)
  {
    return nullptr;
  }
  // The font owns the face only after its constructor has ended.
  std::unique_ptr<FT_FaceRec, FT_Error (*)(FT_Face)> guard(face, FT_Done_Face);
  Font* font = new Font(face);
  static_cast<void>(guard.release());
  return font;
}

} // namespace orvex::render::gl
