#include "paper/Pages.h"

#include "foundation/progress/Work.h"
#include "paper/CutClades.h"
#include "paper/DrawingStages.h"
#include "paper/PassDrawing.h"
#include "paper/SheetFrame.h"
#include "paper/Strip.h"
#include "paper/TreeScene.h"
#include "tree/model/Tree.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvex::paper
{
namespace Detail
{
namespace
{

/// How many parts of a length there are.
unsigned int partsOf(unsigned int length, unsigned int part)
{
  return length / part + (length % part == 0 ? 0 : 1);
}

/// Draws the sheets of a strip, one after the other.
class SheetDrawing
{
public:
  SheetDrawing(const Strip& strip, const TreeScene& scene, double lineWidth, Canvas& canvas)
      : _strip(strip), _scene(scene), _lineWidth(lineWidth), _canvas(canvas)
  {
  }

  void draw(const Sheet& sheet, const std::string& title)
  {
    _canvas.beginSheet(sheet.format.width, sheet.format.height);
    const render::DrawingPass pass = _strip.pass(sheet.part);
    const render::gl::RenderGraph graph = _strip.cull(pass, _lineWidth);
    const Placement placement{{sheet.box.minimum.x, sheet.box.maximum.y}, _strip.scale()};
    PassDrawing drawing(_canvas, pass, placement, _lineWidth);
    drawing.onlyNamesInside(true);
    Kelmar::Progress::Work none(DrawingStages::drawing, 0); // the sheets are counted, not this
    drawing.draw(graph, none);
    SheetFrame frame(_canvas, sheet);
    frame.draw(title);
    if (sheet.row > 0)
    {
      frame.nameAbove(_leaving(sheet, sheet.part.y + sheet.part.height));
    }
    if (sheet.row + 1 < sheet.rows)
    {
      frame.nameBelow(_leaving(sheet, sheet.part.y));
    }
  }

private:
  /// \param edge  in pixels of the strip, y upward
  std::vector<LeavingLine> _leaving(const Sheet& sheet, double edge) const
  {
    const Kelmar::Math::Matrix44d toStrip = _strip.pass(_strip.area()).computeLocalToScreenMatrix();
    const double row = (edge - toStrip[13]) / toStrip[5];
    const boost::intrusive_ptr<CutClades> cut(new CutClades(row));
    _scene.root().accept(*cut);
    std::vector<LeavingLine> lines;
    for (const CutClades::Clade& clade : cut->found())
    {
      const double x = toStrip[0] * clade.x + toStrip[12];
      if (x >= sheet.part.x && x < sheet.part.x + sheet.part.width)
      {
        lines.push_back(
            {sheet.box.minimum.x + (x - sheet.part.x) * _strip.scale(), _describe(clade, row)});
      }
    }
    std::sort(lines.begin(), lines.end(),
              [](const LeavingLine& a, const LeavingLine& b) { return a.x < b.x; });
    return lines;
  }

  std::string _describe(const CutClades::Clade& clade, double row) const
  {
    const double leaves = _scene.numberOfLabels();
    const auto above = std::lround(std::ceil((clade.highest - row) * leaves));
    const auto below = std::lround(std::ceil((row - clade.lowest) * leaves));
    std::string name = _scene.tree().getName(clade.node);
    name = name.empty() ? "node " + std::to_string(clade.node) : name;
    return name + ": " + std::to_string(above) + " above, " + std::to_string(below) + " below";
  }

  const Strip& _strip;
  const TreeScene& _scene;
  double _lineWidth;
  Canvas& _canvas;
};

} // namespace
} // namespace Detail

Pages::Pages(const Strip& strip, const PageFormat& format)
    : _strip(strip),
      _format(format),
      _leavesOfSheet(static_cast<unsigned int>((format.height - 2.0 * margin) / strip.scale() /
                                               render::mostPixelsPerLeaf)),
      _pixelsOfColumn(static_cast<unsigned int>((format.width - 2.0 * margin) / strip.scale())),
      _columns(0),
      _sheets(0)
{
  if (_leavesOfSheet < 2)
  {
    throw std::runtime_error("a page has no room for two leaves; take a smaller --leaf-height");
  }
  _sheets = Detail::partsOf(strip.leaves(), _leavesOfSheet);
  _columns = Detail::partsOf(strip.area().width, _pixelsOfColumn);
}

Sheet Pages::_sheet(unsigned int column, unsigned int row) const
{
  const render::Viewport& strip = _strip.area();
  // Between the rows of two leaves. The first row's middle is 8 pixels below the upper edge.
  const auto edgeBefore = [&](unsigned int sheet)
  {
    const unsigned int leaves = std::min(sheet * _leavesOfSheet, _strip.leaves());
    return leaves == 0 ? 0 : leaves * render::mostPixelsPerLeaf - 1;
  };
  const unsigned int top = edgeBefore(row);
  const unsigned int bottom = edgeBefore(row + 1);
  const unsigned int left = column * _pixelsOfColumn;
  const unsigned int width = std::min(_pixelsOfColumn, strip.width - left);
  Sheet sheet{row,
              _sheets,
              column,
              _columns,
              {left, strip.height - bottom, width, bottom - top},
              double(top) / strip.height,
              double(bottom) / strip.height,
              _format,
              {}};
  sheet.box = {{margin, margin},
               {margin + width * _strip.scale(), margin + (bottom - top) * _strip.scale()}};
  return sheet;
}

void Pages::draw(const TreeScene& scene, const std::string& title, double lineWidth,
                 Canvas& canvas) const
{
  Kelmar::Progress::Work work(DrawingStages::drawing, std::size_t(_columns) * _sheets);
  Detail::SheetDrawing drawing(_strip, scene, lineWidth, canvas);
  for (unsigned int column = 0; column < _columns; ++column)
  {
    for (unsigned int row = 0; row < _sheets; ++row)
    {
      drawing.draw(_sheet(column, row), title);
      work.done();
    }
  }
}

} // namespace orvex::paper
