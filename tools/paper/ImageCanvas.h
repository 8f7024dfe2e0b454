#pragma once

#include "paper/PainterCanvas.h"

#include <QImage>

#include <string>

namespace orvex::paper
{

/// A picture of pixels, one to a point, of one sheet.
class ImageCanvas : public PainterCanvas
{
public:
  /// Qt draws no longer pictures.
  static constexpr double longestSide = 32767.0;

  /// \param name  its suffix says of which kind the picture is
  ImageCanvas(std::string name, const Colours& colours, const Typeface& typeface)
      : PainterCanvas(colours, typeface), _name(std::move(name))
  {
  }

  /// \throws std::runtime_error  if there is no memory for so large a picture
  void beginSheet(double width, double height) override;
  void finish() override;

private:
  std::string _name;
  QImage _image;
};

} // namespace orvex::paper
