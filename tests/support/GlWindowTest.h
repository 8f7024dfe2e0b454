#pragma once

#include "support/GlWindow.h"
#include "support/Outcome.h"
#include "support/SceneFixture.h"

#include <QTest>

#include <memory>

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
