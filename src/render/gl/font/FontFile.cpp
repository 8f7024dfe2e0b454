#include "render/gl/font/FontFile.h"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace orvex::render::gl
{

std::string systemFontFile(const std::string& family)
{
  using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
  if (!FcInit())
  {
    return {};
  }
  const Pattern wanted(FcPatternCreate(), &FcPatternDestroy);
  FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());

  FcResult result = FcResultNoMatch;
  const Pattern match(FcFontMatch(nullptr, wanted.get(), &result), &FcPatternDestroy);
  FcChar8* file = nullptr;
  if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch)
  {
    return {};
  }
  return reinterpret_cast<const char*>(file);
}

} // namespace orvex::render::gl
