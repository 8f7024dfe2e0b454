#pragma once

#include <string>

using FT_Library = struct FT_LibraryRec_*;

namespace orvex::render::gl
{

class Font;

/// The font library, started once for the process. Every Font must be gone before destroy().
class FreeType
{
public:
  /// Starts the library at the first call.
  /// \throws std::runtime_error  if it can't start
  static FreeType* instance();
  /// Ends the library, if it was started. Nothing of it may be used afterwards.
  static void destroy();

  /// \param index  of the font in the file
  /// \return a font, to be held by boost::intrusive_ptr, or null if \p filename is no font
  Font* createFont(const std::string& filename, long index = 0);

private:
  FreeType();
  ~FreeType();

  static FreeType* _instance;
  FT_Library _library = nullptr;
};

} // namespace orvex::render::gl
