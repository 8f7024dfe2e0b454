#pragma once

#include "paper/Canvas.h"
#include "paper/Colours.h"
#include "paper/Typeface.h"

#include <QPainter>
#include <QPainterPath>

namespace orvex::paper
{

/// Draws with Qt's painter on one of its devices.
class PainterCanvas : public Canvas
{
public:
  void clip(const Box2D& box) override;
  void lineWidth(double width) override;
  void line(const std::vector<Point>& points) override;
  void outline(const std::array<Point, 3>& corners) override;
  void text(const Point& start, const std::string& text, double em) override;
  void mark(const Box2D& box) override;

protected:
  /// \param typeface  must outlive this object
  PainterCanvas(const Colours& colours, const Typeface& typeface)
      : _colours(colours), _typeface(typeface)
  {
  }

  QPainter& painter() { return _painter; }
  /// To be called when a sheet has begun. \param units  of the device to a point
  void prepareSheet(double width, double height, double units);
  /// Draws what was collected.
  void flush();

private:
  QPen _pen(const QColor& colour, Qt::PenJoinStyle join) const;
  QPointF _at(const Point& point) const { return {point.x * _units, point.y * _units}; }
  QRectF _at(const Box2D& box) const { return {_at(box.minimum), _at(box.maximum)}; }

  Colours _colours;
  const Typeface& _typeface;
  QPainter _painter;
  double _units = 1.0;
  double _lineWidth = 1.0;
  int _fontPixels = 0;
  QPainterPath _lines;
};

} // namespace orvex::paper
