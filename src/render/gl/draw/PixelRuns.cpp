#include "render/gl/draw/PixelRuns.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orvex::render::gl
{

double pixelOf(double position)
{
  // More than any rounding error at the greatest zoom of ten million leaves, and too little to be
  // seen.
  constexpr double tolerance = 1e-6;
  if (std::abs(position) <= tolerance)
  {
    return 0.0;
  }
  return std::ceil(position - tolerance) - 1.0;
}

void PixelRuns::reset(unsigned int lines, unsigned int length)
{
  _lit.assign(lines, PixelRun());
  _length = length;
}

PixelRun PixelRuns::add(double line, double from, double to)
{
  const double index = pixelOf(line);
  if (!(index >= 0.0 && index < static_cast<double>(_lit.size())))
  {
    return PixelRun();
  }
  const PixelRun run = _clip(pixelOf(std::min(from, to)), pixelOf(std::max(from, to)));
  PixelRun& lit = _lit[static_cast<std::size_t>(index)];
  if (run.empty() || (run.first >= lit.first && run.last <= lit.last))
  {
    return PixelRun();
  }
  const bool meets = !lit.empty() && run.first <= lit.last + 1 && run.last >= lit.first - 1;
  lit = meets ? PixelRun{std::min(run.first, lit.first), std::max(run.last, lit.last)} : run;
  return run;
}

// Done before the conversion to whole numbers: at a great zoom a line's end is outside their range.
PixelRun PixelRuns::_clip(double first, double last) const
{
  const double end = static_cast<double>(_length) - 1.0;
  if (!(first <= end && last >= 0.0))
  {
    return PixelRun();
  }
  return {static_cast<int>(std::max(first, 0.0)), static_cast<int>(std::min(last, end))};
}

} // namespace orvex::render::gl
