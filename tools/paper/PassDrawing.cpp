#include "paper/PassDrawing.h"

#include "foundation/progress/Work.h"
#include "render/gl/draw/LineStrip.h"
#include "render/gl/draw/Text.h"
#include "render/gl/draw/Triangle.h"

#include <algorithm>

namespace orvex::paper
{
namespace Detail
{
namespace
{

// How far beyond the area lines are drawn, in points. What is longer is cut: at a great zoom the
// ends are too far away for a document.
constexpr double overhang = 20.0;
// A position on the border of two pixels belongs to the lower or left one. So that a program that
// draws the document at 72 dots to an inch chooses the same one, lines lie that much beside it.
constexpr double besideBorder = 0.001;
// The viewer's labels have an em of 15 pixels.
constexpr double emOfLabels = 15.0;

} // namespace
} // namespace Detail

PassDrawing::PassDrawing(Canvas& canvas, const render::DrawingPass& pass,
                         const Placement& placement, double lineWidth)
    : _canvas(canvas),
      _placement(placement),
      _localToScreen(pass.computeLocalToScreenMatrix()),
      _area(placement.toSheet(pass.viewport)),
      _filter(_area.maximum.x - _area.minimum.x, _area.maximum.y - _area.minimum.y, lineWidth)
{
  canvas.clip(_area);
  canvas.lineWidth(lineWidth);
}

Point PassDrawing::_toPixels(const Point& world) const
{
  return {_localToScreen[0] * world.x + _localToScreen[12],
          _localToScreen[5] * world.y + _localToScreen[13]};
}

Point PassDrawing::_inArea(const Point& world) const
{
  const Point sheet = _placement.toSheet(_toPixels(world));
  return {sheet.x - _area.minimum.x, _area.maximum.y - sheet.y};
}

Point PassDrawing::_toSheet(const Point& inArea) const
{
  return {std::clamp(_area.minimum.x + inArea.x - Detail::besideBorder,
                     _area.minimum.x - Detail::overhang, _area.maximum.x + Detail::overhang),
          std::clamp(_area.maximum.y - inArea.y + Detail::besideBorder,
                     _area.minimum.y - Detail::overhang, _area.maximum.y + Detail::overhang)};
}

std::size_t PassDrawing::units(const render::gl::RenderGraph& graph)
{
  return graph.text().size() + graph.highLod().size();
}

void PassDrawing::draw(const render::gl::RenderGraph& graph, Kelmar::Progress::Work& work)
{
  _drawText(graph, work);
  for (const auto& drawable : graph.highLod())
  {
    _drawEdges(dynamic_cast<const LineStrip&>(*drawable));
    work.done();
  }
  for (const Box2D& clade : graph.runs())
  {
    _drawPart(_inArea(clade.minimum), _inArea({clade.maximum.x, clade.minimum.y}));
    _endLine();
  }
  for (const auto& drawable : graph.lowLod())
  {
    std::array<Point, 3> corners = dynamic_cast<const Triangle&>(*drawable).vertices();
    for (Point& corner : corners)
    {
      corner = _placement.toSheet(_toPixels(corner));
    }
    _canvas.outline(corners);
  }
}

bool PassDrawing::_isShown(const render::gl::Text& label) const
{
  const Point anchor = _inArea(label.position());
  return !_onlyNamesInside || (anchor.y >= 0.0 && anchor.y < _area.maximum.y - _area.minimum.y &&
                               anchor.x < _area.maximum.x - _area.minimum.x);
}

void PassDrawing::_drawText(const render::gl::RenderGraph& graph, Kelmar::Progress::Work& work)
{
  for (const auto& drawable : graph.text())
  {
    const auto& label = dynamic_cast<const render::gl::Text&>(*drawable);
    const Box2D box = label.boundingBox();
    Point start = _toPixels(label.position());
    start.y -= (box.maximum.y + box.minimum.y) * 0.5; // centred in height, as Text draws it
    if (box.valid() && _isShown(label))
    {
      _canvas.text(_placement.toSheet(start), label.text(), Detail::emOfLabels * _placement.scale);
    }
    work.done();
  }
}

void PassDrawing::_drawEdges(const LineStrip& strip)
{
  Point previous{};
  for (render::EdgeList::Reader reader = strip.edges(); reader.next();)
  {
    const Point vertex = _inArea(reader.vertex());
    if (reader.beginsEdge())
    {
      _endLine();
    }
    else
    {
      _drawPart(previous, vertex);
    }
    previous = vertex;
  }
  _endLine();
}

// Parts of an elbow that follow each other are one line.
void PassDrawing::_drawPart(const Point& from, const Point& to)
{
  if (!_filter.isNew(from, to))
  {
    _endLine();
    return;
  }
  if (_line.empty())
  {
    _line.push_back(_toSheet(from));
  }
  _line.push_back(_toSheet(to));
}

void PassDrawing::_endLine()
{
  if (!_line.empty())
  {
    _canvas.line(_line);
    _line.clear();
  }
}

} // namespace orvex::paper
