#include "paper/SvgCanvas.h"

#include "gui/qt/Strings.h"

#include <utility>

namespace orvex::paper
{
namespace Detail
{
namespace
{

constexpr int mostBytes = 20000; // of a path

// A thousandth of a point is far less than any device shows.
QByteArray number(double value)
{
  QByteArray text = QByteArray::number(value, 'f', 3);
  while (text.endsWith('0'))
  {
    text.chop(1);
  }
  if (text.endsWith('.'))
  {
    text.chop(1);
  }
  return text;
}

// XML can't hold control characters.
QString xmlText(const std::string& text)
{
  QString result = Tools::Qt::text(text);
  for (QChar& c : result)
  {
    const bool isControl = c < QChar(' ') && c != '\t';
    c = isControl || c.isNonCharacter() ? QChar(QChar::ReplacementCharacter) : c;
  }
  return result;
}

QByteArray pair(const Point& point)
{
  return number(point.x) + ' ' + number(point.y);
}

} // namespace
} // namespace Detail

SvgCanvas::SvgCanvas(const std::string& name, const Description& description,
                     const Colours& colours, const Typeface& typeface)
    : _file(name),
      _xml(&_file.device()),
      _description(description),
      _colours(colours),
      _typeface(typeface)
{
}

void SvgCanvas::beginSheet(double width, double height)
{
  _xml.writeStartDocument();
  _xml.writeDefaultNamespace("http://www.w3.org/2000/svg");
  _xml.writeStartElement("svg");
  _xml.writeAttribute("version", "1.1");
  _xml.writeAttribute("width", Detail::number(width) + "pt");
  _xml.writeAttribute("height", Detail::number(height) + "pt");
  _xml.writeAttribute("viewBox", "0 0 " + Detail::pair({width, height}));
  _xml.writeAttribute("xml:space", "preserve"); // for the blanks of names
  _xml.writeTextElement("title", Detail::xmlText(_description.title));
  _xml.writeTextElement(
      "desc", Detail::xmlText("The tree of " + _description.source + ", drawn by " + creator));
  if (_colours.ground != Qt::white)
  {
    _xml.writeEmptyElement("rect");
    _writeBox({{0.0, 0.0}, {width, height}});
    _xml.writeAttribute("fill", _colours.ground.name());
  }
}

void SvgCanvas::_writeBox(const Box2D& box)
{
  _xml.writeAttribute("x", Detail::number(box.minimum.x));
  _xml.writeAttribute("y", Detail::number(box.minimum.y));
  _xml.writeAttribute("width", Detail::number(box.maximum.x - box.minimum.x));
  _xml.writeAttribute("height", Detail::number(box.maximum.y - box.minimum.y));
}

void SvgCanvas::clip(const Box2D& box)
{
  _enter(Group::None);
  if (_clips > 0)
  {
    _xml.writeEndElement();
  }
  const QString id = "clip" + QString::number(++_clips);
  _xml.writeStartElement("clipPath");
  _xml.writeAttribute("id", id);
  _xml.writeEmptyElement("rect");
  _writeBox(box);
  _xml.writeEndElement();
  _xml.writeStartElement("g");
  _xml.writeAttribute("clip-path", "url(#" + id + ")");
}

void SvgCanvas::lineWidth(double width)
{
  _enter(Group::None);
  _lineWidth = width;
}

void SvgCanvas::line(const std::vector<Point>& points)
{
  _enter(Group::Lines);
  char command = 'M';
  for (const Point& point : points)
  {
    _path += command + Detail::pair(point);
    command = 'L';
  }
  if (_path.size() > Detail::mostBytes)
  {
    _flush();
  }
}

void SvgCanvas::_flush()
{
  if (!_path.isEmpty())
  {
    _xml.writeEmptyElement("path");
    _xml.writeAttribute("d", QString::fromLatin1(std::exchange(_path, QByteArray())));
  }
}

void SvgCanvas::outline(const std::array<Point, 3>& corners)
{
  _enter(Group::Outlines);
  _xml.writeEmptyElement("path");
  _xml.writeAttribute("d", 'M' + Detail::pair(corners[0]) + 'L' + Detail::pair(corners[1]) + 'L' +
                               Detail::pair(corners[2]) + 'Z');
}

void SvgCanvas::text(const Point& start, const std::string& text, double em)
{
  if (_typeface.exists())
  {
    _enter(Group::Texts, em);
    _xml.writeStartElement("text");
    _xml.writeAttribute("x", Detail::number(start.x));
    _xml.writeAttribute("y", Detail::number(start.y));
    _xml.writeCharacters(Detail::xmlText(text));
    _xml.writeEndElement();
  }
}

void SvgCanvas::mark(const Box2D& box)
{
  _enter(Group::None);
  _xml.writeEmptyElement("rect");
  _writeBox(box);
  _xml.writeAttribute("fill", _colours.mark.name());
  _xml.writeAttribute("fill-opacity", QString::number(opacityOfMark));
  _writeStroke(_colours.mark, "miter");
}

void SvgCanvas::_enter(Group group, double em)
{
  if (group == _group && em == _em)
  {
    return;
  }
  _flush();
  if (_group != Group::None)
  {
    _xml.writeEndElement();
  }
  _group = group;
  _em = em;
  if (group != Group::None)
  {
    _xml.writeStartElement("g");
    _describeGroup(group, em);
  }
}

void SvgCanvas::_describeGroup(Group group, double em)
{
  if (group == Group::Texts)
  {
    _xml.writeAttribute("fill", _colours.ink.name());
    _xml.writeAttribute("font-family", _typeface.family() + ", Arial, sans-serif");
    _xml.writeAttribute("font-size", Detail::number(em));
    return;
  }
  _xml.writeAttribute("fill", "none");
  if (group == Group::Lines)
  {
    _writeStroke(_colours.ink, "miter");
  }
  else
  {
    _writeStroke(_colours.outline, "bevel");
  }
}

void SvgCanvas::_writeStroke(const QColor& colour, const char* join)
{
  _xml.writeAttribute("stroke", colour.name());
  _xml.writeAttribute("stroke-width", Detail::number(_lineWidth));
  _xml.writeAttribute("stroke-linecap", "square");
  _xml.writeAttribute("stroke-linejoin", join);
}

void SvgCanvas::finish()
{
  _enter(Group::None);
  _xml.writeEndDocument();
  _file.finish();
}

} // namespace orvex::paper
