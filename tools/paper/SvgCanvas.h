#pragma once

#include "paper/Canvas.h"
#include "paper/Colours.h"
#include "paper/Description.h"
#include "paper/OutputFile.h"
#include "paper/Typeface.h"

#include <QXmlStreamWriter>

namespace orvex::paper
{

/// Writes an SVG of one sheet, a piece at a time: its memory does not depend on the tree.
///
/// Qt's own QSvgGenerator writes no clip paths, and numbers with six digits, which misplaces the
/// rows of a large tree.
class SvgCanvas : public Canvas
{
public:
  /// \param typeface  must outlive this object
  /// \throws std::runtime_error  if the file can't be created
  SvgCanvas(const std::string& name, const Description& description, const Colours& colours,
            const Typeface& typeface);

  /// \pre no sheet was begun before
  void beginSheet(double width, double height) override;
  void clip(const Box2D& box) override;
  void lineWidth(double width) override;
  void line(const std::vector<Point>& points) override;
  void outline(const std::array<Point, 3>& corners) override;
  void text(const Point& start, const std::string& text, double em) override;
  void mark(const Box2D& box) override;
  void finish() override;

private:
  enum class Group
  {
    None,
    Lines,
    Outlines,
    Texts
  };

  void _flush();
  void _enter(Group group, double em = 0.0);
  void _describeGroup(Group group, double em);
  void _writeStroke(const QColor& colour, const char* join);
  void _writeBox(const Box2D& box);

  OutputFile _file;
  QXmlStreamWriter _xml;
  Description _description;
  Colours _colours;
  const Typeface& _typeface;
  double _lineWidth = 1.0;
  int _clips = 0;
  Group _group = Group::None;
  double _em = 0.0;
  QByteArray _path; // of lines that are not written yet
};

} // namespace orvex::paper
