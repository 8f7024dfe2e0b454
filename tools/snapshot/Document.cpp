#include "snapshot/Document.h"

#include "gui/qt/Strings.h"
#include "paper/ImageCanvas.h"
#include "paper/Pages.h"
#include "paper/PdfCanvas.h"
#include "paper/Strip.h"
#include "paper/SvgCanvas.h"
#include "paper/ViewSheet.h"
#include "paper/WholeSheet.h"
#include "render/gl/scene/RenderTaxonLabels.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <optional>

namespace orvex::snapshot
{
namespace Detail
{
namespace
{

// In points: presses and printers hardly draw thinner ones.
constexpr double thinnestLine = 0.1;

paper::Description describe(const std::string& tree)
{
  const QFileInfo file(Tools::Qt::fileName(tree));
  return {Tools::Qt::text(file.completeBaseName()), Tools::Qt::text(file.fileName())};
}

} // namespace
} // namespace Detail

Document::Document(const boost::shared_ptr<Tree>& tree, const Request& request)
    : _request(request), _scene(tree)
{
}

std::unique_ptr<paper::Canvas> Document::_makeCanvas()
{
  const paper::Colours colours =
      _request.paperColours ? paper::Colours::paper() : paper::Colours::screen();
  const paper::Description description = Detail::describe(_request.tree);
  if (_request.kind == Request::Kind::Pixels)
  {
    return std::make_unique<paper::ImageCanvas>(_request.image, colours, _typeface);
  }
  if (_request.kind == Request::Kind::Svg)
  {
    return std::make_unique<paper::SvgCanvas>(_request.image, description, colours, _typeface);
  }
  return std::make_unique<paper::PdfCanvas>(_request.image, description, colours, _typeface);
}

std::vector<std::string> Document::write()
{
  _noteMissingCharacters();
  const std::unique_ptr<paper::Canvas> canvas = _makeCanvas();
  if (_request.whole)
  {
    _drawWhole(*canvas);
  }
  else
  {
    _drawView(*canvas);
  }
  canvas->finish();
  return _notes;
}

void Document::_drawView(paper::Canvas& canvas)
{
  const Look& look = _request.look;
  drawView(_scene,
           {static_cast<unsigned int>(look.size.width()),
            static_cast<unsigned int>(look.size.height()), look.zoom, look.pan, look.all,
            _request.lineWidth.value_or(1.0)},
           canvas);
}

void Document::_drawWhole(paper::Canvas& canvas)
{
  const std::optional<double> widthOfPage =
      _request.page ? std::optional(_request.page->width - 2.0 * paper::Pages::margin)
                    : std::nullopt;
  const paper::Strip strip(_scene, _typeface, _request.leafHeight,
                           _request.width ? _request.width : widthOfPage);
  const double lineWidth =
      _request.lineWidth.value_or(std::max(strip.scale(), Detail::thinnestLine));
  if (_request.page)
  {
    const std::string title = Detail::describe(_request.tree).title;
    paper::Pages(strip, *_request.page).draw(_scene, title, lineWidth, canvas);
    return;
  }
  drawWhole(strip, lineWidth, canvas);
  const double side = std::max(strip.width(), strip.height());
  if (_request.kind == Request::Kind::Pdf && side > paper::PdfCanvas::longestSide)
  {
    _notes.push_back("the page is " + std::to_string(std::lround(side)) +
                     " points long, and PDF's longest is 14400: it has a larger unit (UserUnit), "
                     "and programs that don't know that show it smaller; --pages splits it");
  }
}

void Document::_noteMissingCharacters()
{
  if (!_typeface.exists())
  {
    _notes.push_back("no font was found, so the document has no names");
    return;
  }
  std::size_t names = 0;
  std::string first;
  for (const auto& label : _scene.labels().texts())
  {
    const std::string name = label->text();
    if (!_typeface.has(name) && names++ == 0)
    {
      first = name;
    }
  }
  if (names > 0)
  {
    _notes.push_back("the font " + Tools::Qt::text(_typeface.family()) + " lacks characters of " +
                     std::to_string(names) + (names == 1 ? " name" : " names") + ", first '" +
                     first + "': they are drawn as its sign for a missing one");
  }
}

} // namespace orvex::snapshot
