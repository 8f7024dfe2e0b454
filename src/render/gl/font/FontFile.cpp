#include "render/gl/font/FontFile.h"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using FontSet = std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)>;

bool isScalable(FcPattern* font)
{
  FcBool scalable = FcFalse;
  return FcPatternGetBool(font, FC_SCALABLE, 0, &scalable) == FcResultMatch && scalable;
}

FontFile fileOf(FcPattern* font)
{
  FcChar8* path = nullptr;
  int index = 0;
  if (FcPatternGetString(font, FC_FILE, 0, &path) != FcResultMatch)
  {
    return {};
  }
  FcPatternGetInteger(font, FC_INDEX, 0, &index);
  return {reinterpret_cast<const char*>(path), index};
}

} // namespace
} // namespace Detail

FontFile systemFontFile(const std::string& family)
{
  if (!FcInit())
  {
    return {};
  }
  const Detail::Pattern wanted(FcPatternCreate(), &FcPatternDestroy);
  if (!wanted)
  {
    return {};
  }
  FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());

  FcResult result = FcResultNoMatch;
  const Detail::Pattern match(FcFontMatch(nullptr, wanted.get(), &result), &FcPatternDestroy);
  if (match && Detail::isScalable(match.get()))
  {
    return Detail::fileOf(match.get());
  }
  // The best match is a bitmap font: take the best scalable one. Sorting all fonts takes longer.
  const Detail::FontSet all(FcFontSort(nullptr, wanted.get(), FcFalse, nullptr, &result),
                            &FcFontSetDestroy);
  for (int i = 0; all && i < all->nfont; ++i)
  {
    if (Detail::isScalable(all->fonts[i]))
    {
      return Detail::fileOf(all->fonts[i]);
    }
  }
  return {};
}

} // namespace orvex::render::gl
