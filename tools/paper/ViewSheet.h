#pragma once

#include <boost/shared_ptr.hpp>

namespace orvex
{
class Tree;
}

namespace orvex::paper
{

class Canvas;
class TreeScene;

/// What a window of the viewer shows.
struct ViewLook
{
  /// Of the window in pixels, of the sheet in points.
  unsigned int width;
  unsigned int height;
  /// At 1.0, its least value, the whole tree is in view.
  double zoom;
  /// How far the tree is moved up; 1.0 is its whole height.
  double pan;
  /// Shows every line, never an outline of a clade.
  bool all;
  /// In points.
  double lineWidth;
};

/// Draws one sheet that shows what the window shows, thumbnail included.
void drawView(const TreeScene& scene, const ViewLook& look, Canvas& canvas);

} // namespace orvex::paper
