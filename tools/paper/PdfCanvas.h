#pragma once

#include "paper/Description.h"
#include "paper/OutputFile.h"
#include "paper/PainterCanvas.h"

#include <QPdfWriter>

namespace orvex::paper
{

/// Writes a PDF. Its texts can be searched; their font is embedded, with the glyphs that are used.
/// A sheet that is longer than PDF's 14,400 units has a larger unit (UserUnit).
class PdfCanvas : public PainterCanvas
{
public:
  /// The longest side of a sheet, in points, that every reader shows in its own size.
  static constexpr double longestSide = 14400.0;

  /// \throws std::runtime_error  if the file can't be created
  PdfCanvas(const std::string& name, const Description& description, const Colours& colours,
            const Typeface& typeface);

  void beginSheet(double width, double height) override;
  void finish() override;

private:
  OutputFile _file;
  QPdfWriter _writer;
};

} // namespace orvex::paper
