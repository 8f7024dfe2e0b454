#include "paper/SheetFrame.h"

#include <algorithm>
#include <array>

namespace orvex::paper
{
namespace Detail
{
namespace
{

// All in points.
constexpr double em = 5.0;
constexpr double lineWidth = 0.25;
constexpr double mark = 9.0;
constexpr double stripe = 4.0;
constexpr double step = 6.0; // from one row of names to the next
constexpr std::size_t rows = 3;
// Digits and small letters are narrower than this share of an em on the average.
constexpr double widthOfCharacter = 0.58;
constexpr double heightOfDigits = 0.7; // the same
constexpr double gap = 1.5;

} // namespace
} // namespace Detail

SheetFrame::SheetFrame(Canvas& canvas, const Sheet& sheet) : _canvas(canvas), _sheet(sheet)
{
  canvas.clip({{0.0, 0.0}, {sheet.format.width, sheet.format.height}});
  canvas.lineWidth(Detail::lineWidth);
}

void SheetFrame::draw(const std::string& title)
{
  _drawMarks();
  _drawStripe();
  const std::string number = std::to_string(_sheet.row + 1) + " of " + std::to_string(_sheet.rows) +
                             ", column " + std::to_string(_sheet.column + 1);
  const double row = _sheet.format.height - 2.0 * Detail::em;
  _canvas.text({_sheet.box.minimum.x, row}, number + "   " + title, 1.4 * Detail::em);
}

void SheetFrame::_drawMarks()
{
  const Box2D& box = _sheet.box;
  for (const double x : {box.minimum.x, box.maximum.x})
  {
    const double outward = x == box.minimum.x ? -1.0 : 1.0;
    for (const double y : {box.minimum.y, box.maximum.y})
    {
      const double away = y == box.minimum.y ? -1.0 : 1.0;
      _canvas.line({{x + outward * 2.0, y}, {x + outward * (2.0 + Detail::mark), y}});
      _canvas.line({{x, y + away * 2.0}, {x, y + away * (2.0 + Detail::mark)}});
    }
  }
}

void SheetFrame::_drawStripe()
{
  const double left = _sheet.box.minimum.x / 3.0;
  const double top = _sheet.box.minimum.y;
  const double height = _sheet.format.height - 2.0 * top;
  const double right = left + Detail::stripe;
  _canvas.line(
      {{left, top}, {right, top}, {right, top + height}, {left, top + height}, {left, top}});
  _canvas.mark({{left, top + _sheet.begin * height}, {right, top + _sheet.end * height}});
}

void SheetFrame::nameAbove(const std::vector<LeavingLine>& lines)
{
  _name(lines, _sheet.box.minimum.y, -1.0);
}

void SheetFrame::nameBelow(const std::vector<LeavingLine>& lines)
{
  _name(lines, _sheet.box.maximum.y, 1.0);
}

// A line goes on to its name, which stands as far away as the names at its left allow: no line
// crosses a name.
void SheetFrame::_name(const std::vector<LeavingLine>& lines, double edge, double direction)
{
  std::array<double, Detail::rows> ends{}; // of the names in each row, the nearest first
  std::size_t left = 0;
  for (const LeavingLine& line : lines)
  {
    const auto taken =
        std::find_if(ends.begin(), ends.end(), [&line](double end) { return end >= line.x; });
    if (taken == ends.begin())
    {
      ++left;
      continue;
    }
    const double y = edge + direction * Detail::step * double(taken - ends.begin());
    _canvas.line({{line.x, edge}, {line.x, y}});
    const double baseline = direction > 0.0 ? y : y + Detail::heightOfDigits * Detail::em;
    _canvas.text({line.x + Detail::gap, baseline}, line.text, Detail::em);
    *(taken - 1) = line.x + 3.0 * Detail::gap +
                   Detail::widthOfCharacter * Detail::em * double(line.text.size());
  }
  if (left > 0)
  {
    const double y = edge + direction * Detail::step * double(Detail::rows + 1);
    _canvas.text({0.5 * _sheet.format.width, y},
                 std::to_string(left) +
                     (left == 1 ? " more line leaves here" : " more lines leave here"),
                 Detail::em);
  }
}

} // namespace orvex::paper
