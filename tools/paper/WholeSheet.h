#pragma once

namespace orvex::paper
{

class Canvas;
class Strip;

/// Draws one sheet with the whole tree: every line, and the name of every leaf.
/// \param lineWidth  in points
void drawWhole(const Strip& strip, double lineWidth, Canvas& canvas);

} // namespace orvex::paper
