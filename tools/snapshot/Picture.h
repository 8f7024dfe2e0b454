#pragma once

#include "snapshot/Look.h"

#include <boost/shared_ptr.hpp>

#include <QImage>

namespace orvex
{
class Tree;
}

namespace orvex::snapshot
{

/// Draws a tree as a viewer's window of the picture's size shows it, but off the screen: neither
/// the screen nor the window system has an influence. Needs a QGuiApplication.
/// \throws std::runtime_error  if the display gives no OpenGL context, or its OpenGL can't draw a
///   picture of this size
QImage drawPicture(const boost::shared_ptr<Tree>& tree, const Look& look);

} // namespace orvex::snapshot
