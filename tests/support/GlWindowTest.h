#pragma once

#include "support/GlWindow.h"
#include "support/Outcome.h"
#include "support/SceneFixture.h"

#include <QTest>

#include <cstdlib>
#include <memory>

/// How many pixels have not the same green, but for a rounding. Those that are red in the second
/// picture are left open.
inline int pixelsThatDiffer(const QImage& shown, const QImage& expected)
{
  int count = 0;
  for (int y = 0; y < shown.height(); ++y)
  {
    for (int x = 0; x < shown.width(); ++x)
    {
      const QRgb is = shown.pixel(x, y), asked = expected.pixel(x, y);
      count += asked != qRgb(255, 0, 0) && std::abs(qGreen(is) - qGreen(asked)) > 1;
    }
  }
  return count;
}

/// A window with a current context of OpenGL.
class GlWindowTest : public testing::Test
{
protected:
  /// \param samples  whether a pixel may have several, if the driver can draw so; if not, it is
  ///                 drawn or it isn't
  void openWindow(int width, int height, bool samples)
  {
    window = makeGlWindow(width, height, samples);
    // A frame drawn before the window is there would be lost.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    window->makeCurrent();
    window->swapBuffers(); // the driver takes the window's new size with the next buffer
  }

  /// What the window shows, with the first row at the bottom.
  QImage picture() const { return window->grabFrameBuffer().mirrored(); }

  std::unique_ptr<QGLWidget> window;
};
