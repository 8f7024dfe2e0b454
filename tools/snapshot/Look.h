#pragma once

#include <QSize>

namespace orvex::snapshot
{

/// How a tree is shown.
struct Look
{
  /// Of the picture, in pixels.
  QSize size;
  /// At 1.0, its least value, the whole tree is in view.
  double zoom = 1.0;
  /// How far the tree is moved up; 1.0 is its whole height.
  double pan = 0.0;
  /// Shows every line, never an outline of a clade.
  bool all = false;
};

} // namespace orvex::snapshot
