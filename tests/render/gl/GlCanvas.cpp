#include "render/gl/GlCanvas.h"

#include <QApplication>
#include <QGLWidget>
#include <QtTest/qtestsystem.h>

#include <algorithm>

namespace orvex::test
{
namespace
{

// Qt wants one application object for the process, made before any widget.
void requireApplication()
{
  static int argc = 1;
  static char name[] = "test-render-gl";
  static char* argv[] = {name, nullptr};
  static QApplication application(argc, argv);
}

/// Never shows its back buffer, so that what was drawn there can be read.
class BackBuffer : public QGLWidget
{
public:
  explicit BackBuffer(const QGLFormat& format) : QGLWidget(format) { setAutoBufferSwap(false); }
};

} // namespace

GlCanvas::GlCanvas()
{
  requireApplication();
}

GlCanvas::~GlCanvas() = default;

void GlCanvas::open(int width, int height)
{
  QGLFormat format;
  format.setSampleBuffers(false);
  _widget = std::make_unique<BackBuffer>(format);
  _widget->resize(width, height);
  _widget->show();
  // A frame drawn before the window is there would be lost.
  ASSERT_TRUE(QTest::qWaitForWindowExposed(_widget.get()));
  _widget->makeCurrent();
  _widget->swapBuffers(); // the driver takes the window's new size with the next buffer
  ASSERT_TRUE(_widget->isValid()) << "these tests need an X server with OpenGL";
  ASSERT_EQ(glewInit(), GLenum(GLEW_OK));
  _width = width;
  _height = height;
  glViewport(0, 0, width, height);
  glClearColor(0, 0, 0, 1);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void GlCanvas::read()
{
  _pixels.resize(std::size_t(_width) * std::size_t(_height) * 3);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, _width, _height, GL_RGB, GL_UNSIGNED_BYTE, _pixels.data());
  ASSERT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

Colour GlCanvas::pixel(int x, int y) const
{
  const std::size_t i = 3 * (std::size_t(y) * std::size_t(_width) + std::size_t(x));
  return {_pixels.at(i), _pixels.at(i + 1), _pixels.at(i + 2)};
}

int GlCanvas::count(const std::function<bool(const Colour&)>& wanted) const
{
  int found = 0;
  for (int y = 0; y < _height; ++y)
  {
    for (int x = 0; x < _width; ++x)
    {
      found += wanted(pixel(x, y)) ? 1 : 0;
    }
  }
  return found;
}

int GlCanvas::count(const Colour& colour) const
{
  return count([&](const Colour& c) { return c == colour; });
}

int GlCanvas::rowsWith(int x0, int x1, const std::function<bool(const Colour&)>& wanted,
                       int* lowest) const
{
  int low = _height;
  int high = -1;
  for (int y = 0; y < _height; ++y)
  {
    for (int x = x0; x < x1; ++x)
    {
      if (wanted(pixel(x, y)))
      {
        low = std::min(low, y);
        high = std::max(high, y);
      }
    }
  }
  if (lowest)
  {
    *lowest = low;
  }
  return high < low ? 0 : high - low + 1;
}

} // namespace orvex::test
