#include "paper/PageFormat.h"

#include "gui/qt/Strings.h"

#include <QPageSize>
#include <QRegularExpression>
#include <QSizeF>

#include <stdexcept>

namespace orvex::paper
{
namespace Detail
{
namespace
{

constexpr double pointsPerMillimetre = 72.0 / 25.4;
// In millimetres. Less has no room for margins, more is longer than PDF's pages.
constexpr double leastSide = 70.0;
constexpr double greatestSide = 5000.0;

QSizeF inMillimetres(const QString& value)
{
  const auto size = QRegularExpression("^([\\d.]+)x([\\d.]+)mm$").match(value);
  if (size.hasMatch())
  {
    return {size.captured(1).toDouble(), size.captured(2).toDouble()};
  }
  for (int id = 0; id <= QPageSize::LastPageSize; ++id)
  {
    const auto page = static_cast<QPageSize::PageSizeId>(id);
    if (page != QPageSize::Custom && QPageSize::key(page).toLower() == value.toLower())
    {
      return QPageSize::size(page, QPageSize::Millimeter);
    }
  }
  return {};
}

bool isPossible(double side)
{
  return side >= leastSide && side <= greatestSide;
}

} // namespace
} // namespace Detail

PageFormat PageFormat::parse(const std::string& text)
{
  const QSizeF size = Detail::inMillimetres(Tools::Qt::text(text));
  if (!Detail::isPossible(size.width()) || !Detail::isPossible(size.height()))
  {
    throw std::invalid_argument("'" + text +
                                "' is no page such as A4, Letter or 300x400mm, with "
                                "sides from 70 to 5000 mm");
  }
  return {size.width() * Detail::pointsPerMillimetre, size.height() * Detail::pointsPerMillimetre};
}

} // namespace orvex::paper
