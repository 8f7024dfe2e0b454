#pragma once

#include <boost/shared_ptr.hpp>

#include <QImage>
#include <QSize>

namespace orvex
{
class Tree;
}

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

/// Draws a tree as a viewer's window of the picture's size shows it, but off the screen: neither
/// the screen nor the window system has an influence. Needs a QGuiApplication.
/// \throws std::runtime_error  if the display gives no OpenGL context, or its OpenGL can't draw a
///   picture of this size
QImage drawPicture(const boost::shared_ptr<Tree>& tree, const Look& look);

} // namespace orvex::snapshot
