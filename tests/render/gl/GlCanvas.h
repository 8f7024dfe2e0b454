#pragma once

#include "render/gl/OpenGL.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

class QGLWidget;

namespace orvex::test
{

using Colour = std::array<int, 3>;

constexpr Colour black{0, 0, 0};
constexpr Colour white{255, 255, 255};
constexpr Colour green{0, 255, 0};

/// A window with a current context, without multisampling, so that a pixel is drawn or it isn't.
/// Fails without an X server.
class GlCanvas : public testing::Test
{
protected:
  GlCanvas();
  ~GlCanvas() override;

  /// A context of this size, cleared to black.
  void open(int width, int height);

  /// Reads what was drawn. Fails the test on an OpenGL error.
  void read();

  /// The origin is the lower left.
  Colour pixel(int x, int y) const;
  int count(const std::function<bool(const Colour&)>& wanted) const;
  int count(const Colour& colour) const;
  /// The highest less the lowest row, plus one, that holds a wanted pixel between two columns.
  int rowsWith(int x0, int x1, const std::function<bool(const Colour&)>& wanted, int* lowest) const;

  int width() const { return _width; }
  int height() const { return _height; }

private:
  std::unique_ptr<QGLWidget> _widget;
  int _width = 0;
  int _height = 0;
  std::vector<unsigned char> _pixels;
};

} // namespace orvex::test
