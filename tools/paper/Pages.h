#pragma once

#include "paper/PageFormat.h"
#include "paper/Sheet.h"

#include <string>

namespace orvex::paper
{

class Canvas;
class Strip;
class TreeScene;

/// The whole tree on many sheets, to be glued together along their marks: columns of sheets where
/// it is too wide for one, no row of a leaf cut in two.
class Pages
{
public:
  /// At each side of a sheet, in points.
  static constexpr double margin = 36.0;

  /// \throws std::runtime_error  if a row of a leaf is higher than a sheet
  Pages(const Strip& strip, const PageFormat& format);

  unsigned int columns() const { return _columns; }
  unsigned int sheetsInColumn() const { return _sheets; }

  /// \param title  of the tree, for each sheet
  /// \param lineWidth  in points
  void draw(const TreeScene& scene, const std::string& title, double lineWidth,
            Canvas& canvas) const;

private:
  Sheet _sheet(unsigned int column, unsigned int row) const;

  const Strip& _strip;
  PageFormat _format;
  unsigned int _leavesOfSheet;
  unsigned int _pixelsOfColumn;
  unsigned int _columns;
  unsigned int _sheets;
};

} // namespace orvex::paper
