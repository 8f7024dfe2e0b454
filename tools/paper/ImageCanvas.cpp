#include "paper/ImageCanvas.h"

#include "gui/qt/ImageFile.h"
#include "tree/model/TreeMemory.h"

#include <cmath>
#include <cstddef>
#include <stdexcept>

namespace orvex::paper
{
namespace Detail
{
namespace
{

constexpr int usualDotsPerMeter = 2835; // 72 to an inch
constexpr std::size_t bytesPerPixel = 4;

} // namespace
} // namespace Detail

void ImageCanvas::beginSheet(double width, double height)
{
  const double columns = std::ceil(width);
  const double rows = std::ceil(height);
  const std::string size =
      std::to_string(std::lround(columns)) + "x" + std::to_string(std::lround(rows)) + " pixels";
  if (columns > longestSide || rows > longestSide)
  {
    throw std::runtime_error("a picture of " + size +
                             " is too large, 32767 is the most; a .pdf or .svg has room, or a "
                             "picture with a smaller --leaf-height");
  }
  // Qt would get the addresses, and the system end the program when it fills them.
  requireMemory("A picture of " + size,
                static_cast<std::size_t>(columns * rows) * Detail::bytesPerPixel);
  _image = QImage(static_cast<int>(columns), static_cast<int>(rows), QImage::Format_RGB32);
  if (_image.isNull())
  {
    throw std::runtime_error("there is no memory for a picture of " + size);
  }
  _image.setDotsPerMeterX(Detail::usualDotsPerMeter);
  _image.setDotsPerMeterY(Detail::usualDotsPerMeter);
  _image.fill(Qt::white);
  painter().begin(&_image);
  prepareSheet(width, height, 1.0);
}

void ImageCanvas::finish()
{
  flush();
  painter().end();
  const std::string failure = Tools::Qt::saveImage(_image, _name);
  if (!failure.empty())
  {
    throw std::runtime_error("can't write '" + _name + "': " + failure);
  }
}

} // namespace orvex::paper
