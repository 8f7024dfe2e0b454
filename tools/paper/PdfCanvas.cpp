#include "paper/PdfCanvas.h"

#include "gui/qt/Strings.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace orvex::paper
{
namespace Detail
{
namespace
{

constexpr int pointsPerInch = 72;
// Qt counts the units of a page, and the pixels of a font, in whole numbers.
constexpr double mostUnitsPerPoint = 100.0;
constexpr double mostUnits = 2e9;

// What Qt writes of a document by itself has no place for the tree's file.
QByteArray metadata(const Description& description)
{
  QByteArray text;
  QXmlStreamWriter xml(&text);
  const QString dc = "http://purl.org/dc/elements/1.1/";
  const QString rdf = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
  const QString xmp = "http://ns.adobe.com/xap/1.0/";
  xml.writeStartDocument();
  xml.writeNamespace(rdf, "rdf");
  xml.writeNamespace(dc, "dc");
  xml.writeNamespace(xmp, "xmp");
  xml.writeStartElement(rdf, "RDF");
  xml.writeStartElement(rdf, "Description");
  xml.writeAttribute(rdf, "about", "");
  xml.writeTextElement(xmp, "CreatorTool", creator);
  xml.writeTextElement(dc, "source", Tools::Qt::text(description.source));
  xml.writeStartElement(dc, "title");
  xml.writeStartElement(rdf, "Alt");
  xml.writeStartElement(rdf, "li");
  xml.writeAttribute("xml:lang", "x-default");
  xml.writeCharacters(Tools::Qt::text(description.title));
  xml.writeEndDocument();
  return text;
}

} // namespace
} // namespace Detail

PdfCanvas::PdfCanvas(const std::string& name, const Description& description,
                     const Colours& colours, const Typeface& typeface)
    : PainterCanvas(colours, typeface), _file(name), _writer(&_file.device())
{
  _writer.setPdfVersion(QPagedPaintDevice::PdfVersion_1_6); // the first with a UserUnit
  _writer.setTitle(Tools::Qt::text(description.title));
  _writer.setCreator(creator);
  _writer.setDocumentXmpMetadata(Detail::metadata(description));
}

void PdfCanvas::beginSheet(double width, double height)
{
  flush();
  const double side = std::max(width, height);
  const double units =
      std::clamp(std::floor(Detail::mostUnits / side), 1.0, Detail::mostUnitsPerPoint);
  _writer.setPageLayout(
      {QPageSize({width, height}, QPageSize::Point, QString(), QPageSize::ExactMatch),
       QPageLayout::Portrait,
       {}});
  // The size of the first sheet is taken when its painter begins.
  const bool begun = painter().isActive()
                         ? _writer.newPage()
                         : (_writer.setResolution(Detail::pointsPerInch * static_cast<int>(units)),
                            painter().begin(&_writer));
  if (!begun)
  {
    _file.finish(); // says why
    throw std::runtime_error("a page of the document can't be begun");
  }
  prepareSheet(width, height, _writer.resolution() / double(Detail::pointsPerInch));
}

void PdfCanvas::finish()
{
  flush();
  painter().end();
  _file.finish();
}

} // namespace orvex::paper
