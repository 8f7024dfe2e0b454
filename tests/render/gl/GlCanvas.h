#pragma once

#include "render/gl/ViewCladogram.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QGLWidget;

namespace orvex::test
{

using Colour = std::array<int, 3>;

/// A window with a current context, without multisampling, so that a pixel is drawn or it isn't.
/// Fails without an X server.
class GlCanvas : public testing::Test
{
protected:
  GlCanvas();
  ~GlCanvas() override;

  /// A context of this size, cleared to black.
  void open(int width, int height);
  /// Opens it for a view of a tree, which is not drawn yet.
  void openView(const std::string& newick, int width, int height);
  /// Draws the view and reads what was drawn.
  void draw();
  /// Reads what was drawn. Fails the test on an OpenGL error.
  void read();

  struct Found
  {
    int count, low, end; // the lowest row, and the one above the highest
  };
  /// Looks between two columns and two rows. The origin is the lower left.
  Found find(const std::function<bool(const Colour&)>& wanted, int x0 = 0, int x1 = 9999,
             int y0 = 0, int y1 = 9999) const;

private:
  std::unique_ptr<QGLWidget> _widget;
  std::vector<unsigned char> _pixels;

protected:
  int width = 0;
  int height = 0;
  boost::intrusive_ptr<render::gl::ViewCladogram> view; // goes before its context
};

} // namespace orvex::test
