#pragma once

#include "foundation/math/Matrix44.h"
#include "paper/Canvas.h"
#include "paper/LineFilter.h"
#include "paper/Placement.h"
#include "render/camera/DrawingPass.h"
#include "render/gl/draw/RenderGraph.h"

#include <vector>

class LineStrip;

namespace orvex::render::gl
{
class Text;
}

namespace Kelmar::Progress
{
class Work;
}

namespace orvex::paper
{

/// Draws what a pass shows as a part of a sheet. Of lines that overlap on the screen the same one
/// is on top: OpenGL keeps the pixel that is drawn first, a document what is drawn last.
class PassDrawing
{
public:
  /// \param canvas  must outlive this object
  /// \param lineWidth  in points
  PassDrawing(Canvas& canvas, const render::DrawingPass& pass, const Placement& placement,
              double lineWidth);

  /// Whether a name is left out whose leaf is not in the area, though a part of it is; at first
  /// not.
  void onlyNamesInside(bool value) { _onlyNamesInside = value; }

  /// How many units of work it is to draw a graph.
  static std::size_t units(const render::gl::RenderGraph& graph);
  void draw(const render::gl::RenderGraph& graph, Kelmar::Progress::Work& work);

private:
  Point _toPixels(const Point& world) const;
  Point _inArea(const Point& world) const;
  Point _toSheet(const Point& inArea) const;
  bool _isShown(const render::gl::Text& label) const;
  void _drawText(const render::gl::RenderGraph& graph, Kelmar::Progress::Work& work);
  void _drawEdges(const LineStrip& strip);
  void _drawPart(const Point& from, const Point& to);
  void _endLine();

  Canvas& _canvas;
  Placement _placement;
  Kelmar::Math::Matrix44d _localToScreen;
  Box2D _area; // on the sheet
  LineFilter _filter;
  bool _onlyNamesInside = false;
  std::vector<Point> _line;
};

} // namespace orvex::paper
