#pragma once

#include "paper/Canvas.h"
#include "paper/Sheet.h"

#include <string>
#include <vector>

namespace orvex::paper
{

/// A line that leaves a sheet at its upper or lower edge.
struct LeavingLine
{
  /// On the sheet, in points.
  double x;
  std::string text;
};

/// Draws what stands around the part of the tree on a sheet: marks at its corners, its number, a
/// stripe with the part of the tree that it is, and the names of the lines that leave it.
class SheetFrame
{
public:
  /// \param canvas  with the sheet begun; must outlive this object, as the sheet must
  SheetFrame(Canvas& canvas, const Sheet& sheet);

  void draw(const std::string& title);
  /// \param lines  from the left to the right
  void nameAbove(const std::vector<LeavingLine>& lines);
  void nameBelow(const std::vector<LeavingLine>& lines);

private:
  void _drawMarks();
  void _drawStripe();
  void _name(const std::vector<LeavingLine>& lines, double edge, double direction);

  Canvas& _canvas;
  const Sheet& _sheet;
};

} // namespace orvex::paper
