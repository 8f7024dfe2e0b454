#pragma once

#include <QColor>

namespace orvex::paper
{

/// What a document is drawn with.
struct Colours
{
  QColor ground;
  /// Of lines and names.
  QColor ink;
  /// Of the outlines of clades.
  QColor outline;
  QColor mark;

  static Colours screen() { return {Qt::black, Qt::white, QColor(0, 255, 0), QColor(51, 51, 230)}; }
  /// The green is darker, so that it can be seen on white.
  static Colours paper() { return {Qt::white, Qt::black, QColor(0, 128, 0), QColor(51, 51, 230)}; }
};

/// How opaque the inside of a mark is.
constexpr double opacityOfMark = 0.3;

} // namespace orvex::paper
