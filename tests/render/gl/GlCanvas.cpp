#include "render/gl/OpenGL.h"

#include "render/gl/GlCanvas.h"
#include "tree/NewickReader.h"

#include <QGLWidget>
#include <QtTest/qtestsystem.h>

#include <algorithm>

namespace orvex::test
{
GlCanvas::GlCanvas() = default;

GlCanvas::~GlCanvas() = default;

void GlCanvas::open(int w, int h)
{
  QGLFormat format;
  format.setSampleBuffers(false);
  _widget = std::make_unique<QGLWidget>(format);
  _widget->resize(w, h);
  _widget->show();
  // A frame drawn before the window is there would be lost.
  ASSERT_TRUE(QTest::qWaitForWindowExposed(_widget.get()));
  _widget->makeCurrent();
  _widget->swapBuffers(); // the driver takes the window's new size with the next buffer
  ASSERT_EQ(glewInit(), GLenum(GLEW_OK)) << "these tests need an X server with OpenGL";
  width = w;
  height = h;
  glViewport(0, 0, width, height);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void GlCanvas::openView(const std::string& newick, int w, int h)
{
  open(w, h);
  view = new render::gl::ViewCladogram;
  view->tree(NewickReader().parseContents(newick));
  view->update();
  view->resize(static_cast<unsigned int>(w), static_cast<unsigned int>(h));
}

void GlCanvas::draw()
{
  view->render();
  read();
}

void GlCanvas::read()
{
  _pixels.resize(std::size_t(width) * std::size_t(height) * 3);
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, _pixels.data());
  ASSERT_EQ(glGetError(), GLenum(GL_NO_ERROR));
}

GlCanvas::Found GlCanvas::find(const std::function<bool(const Colour&)>& wanted, int x0, int x1,
                               int y0, int y1) const
{
  Found found{0, height, 0};
  for (int y = y0; y < std::min(y1, height); ++y)
  {
    for (int x = x0; x < std::min(x1, width); ++x)
    {
      const unsigned char* p = &_pixels.at(3 * std::size_t(y * width + x));
      if (wanted({p[0], p[1], p[2]}))
      {
        found = {found.count + 1, std::min(found.low, y), y + 1};
      }
    }
  }
  return found;
}

} // namespace orvex::test
