#include "paper/PainterCanvas.h"

#include "gui/qt/Strings.h"

#include <algorithm>

namespace orvex::paper
{
namespace Detail
{
namespace
{

// Of points in one path: few paths, and none that takes a reader of the document long.
constexpr int mostPoints = 3000;

} // namespace
} // namespace Detail

void PainterCanvas::prepareSheet(double width, double height, double units)
{
  _units = units;
  _fontPixels = 0;
  _painter.setRenderHint(QPainter::Antialiasing);
  if (_colours.ground != Qt::white)
  {
    _painter.fillRect(_at({{0.0, 0.0}, {width, height}}), _colours.ground);
  }
}

void PainterCanvas::clip(const Box2D& box)
{
  flush();
  _painter.setClipRect(_at(box));
}

void PainterCanvas::lineWidth(double width)
{
  flush();
  _lineWidth = width;
}

QPen PainterCanvas::_pen(const QColor& colour, Qt::PenJoinStyle join) const
{
  return {colour, _lineWidth * _units, Qt::SolidLine, Qt::SquareCap, join};
}

void PainterCanvas::line(const std::vector<Point>& points)
{
  _lines.moveTo(_at(points.front()));
  for (std::size_t i = 1; i < points.size(); ++i)
  {
    _lines.lineTo(_at(points[i]));
  }
  if (_lines.elementCount() > Detail::mostPoints)
  {
    flush();
  }
}

void PainterCanvas::flush()
{
  if (!_lines.isEmpty())
  {
    _painter.strokePath(_lines, _pen(_colours.ink, Qt::MiterJoin));
    _lines = QPainterPath();
  }
}

void PainterCanvas::outline(const std::array<Point, 3>& corners)
{
  flush();
  QPainterPath path(_at(corners[0]));
  path.lineTo(_at(corners[1]));
  path.lineTo(_at(corners[2]));
  path.closeSubpath();
  // A sharp corner of a flat triangle would reach far beyond the clade.
  _painter.strokePath(path, _pen(_colours.outline, Qt::BevelJoin));
}

void PainterCanvas::text(const Point& start, const std::string& text, double em)
{
  flush();
  if (!_typeface.exists())
  {
    return;
  }
  const int pixels = std::max(1, qRound(em * _units));
  if (pixels != _fontPixels)
  {
    _painter.setFont(_typeface.font(pixels));
    _fontPixels = pixels;
  }
  _painter.setPen(_colours.ink);
  _painter.drawText(_at(start), Tools::Qt::text(text));
}

void PainterCanvas::mark(const Box2D& box)
{
  flush();
  QColor inside = _colours.mark;
  inside.setAlphaF(opacityOfMark);
  _painter.fillRect(_at(box), inside);
  _painter.setPen(_pen(_colours.mark, Qt::MiterJoin));
  _painter.setBrush(Qt::NoBrush);
  _painter.drawRect(_at(box));
}

} // namespace orvex::paper
