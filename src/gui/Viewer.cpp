#include "gui/Viewer.h"

#include "foundation/system/AllocatorMemory.h"
#include "gui/qt/ImageFile.h"
#include "render/camera/MouseEvent.h"
#include "render/gl/device/Driver.h"
#include "render/gl/device/ReadFrame.h"
#include "render/gl/view/ViewCladogram.h"

#include <boost/make_shared.hpp>

#include <QGLFormat>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <iostream>
#include <stdexcept>
#include <utility>

namespace Lumbra
{
namespace Detail
{
namespace
{

using orvex::render::MouseEvent;

QGLFormat multisampled()
{
  QGLFormat format;
  format.setSampleBuffers(true);
  format.setSamples(4);
  return format;
}

// Once, as it is a matter of the display.
void tellOfMissingSamples()
{
  static bool isTold = false;
  if (!orvex::render::gl::hasSamples() && !std::exchange(isTold, true))
  {
    std::cout << "The windows of this display have one sample for each pixel: outlines of clades "
                 "are not smooth.\n"
              << std::flush;
  }
}

// Whether the key is held with which the left button acts as the right one: Meta, which is the
// Control key of a Mac. On other systems Control does the same, since window managers there use
// Meta for themselves.
bool hasSecondButtonModifier(::Qt::KeyboardModifiers modifiers)
{
#ifdef Q_OS_MACOS
  return modifiers.testFlag(::Qt::MetaModifier);
#else
  return modifiers.testFlag(::Qt::MetaModifier) || modifiers.testFlag(::Qt::ControlModifier);
#endif
}

/// \param pixel  counted from the edge that becomes -1.0
double normalized(int pixel, int size)
{
  // By way of float: the positions are defined so. Only beyond 2^24 pixels would it round.
  return 2.0 * static_cast<double>(static_cast<float>(pixel)) / size - 1.0;
}

MouseEvent toMouseEvent(const QMouseEvent& event, const QSize& size)
{
  const ::Qt::MouseButtons held = event.buttons();
  const bool second = hasSecondButtonModifier(event.modifiers());
  const bool left = held.testFlag(::Qt::LeftButton);
  MouseEvent result;
  result.position = {normalized(event.x(), size.width()),
                     normalized(size.height() - event.y(), size.height())};
  result.left = left && !second;
  result.middle = held.testFlag(::Qt::MiddleButton);
  result.right = held.testFlag(::Qt::RightButton) || (left && second);
  return result;
}

} // namespace
} // namespace Detail

Viewer::Viewer(QWidget* parent, const QRect& place) : QGLWidget(Detail::multisampled(), parent)
{
  if (!place.isEmpty())
  {
    setGeometry(place);
  }
  if (!isValid())
  {
    throw std::runtime_error("The tree can't be drawn: this display gives no OpenGL context.");
  }
  makeCurrent();
  if (!orvex::render::gl::answers())
  {
    throw std::runtime_error("The tree can't be drawn: this display's OpenGL does not answer.");
  }
  if (format().sampleBuffers() && !orvex::render::gl::canMultisample())
  {
    setFormat(QGLFormat());
    makeCurrent();
  }
  Detail::tellOfMissingSamples();
  _view = new orvex::render::gl::ViewCladogram;
  setFocusPolicy(::Qt::ClickFocus);
  setAttribute(::Qt::WA_DeleteOnClose, true);
  // The tree goes with the view. The next one may need the memory, and other programs too. Sent
  // when the context is gone as well, which lies beside the tree.
  connect(this, &QObject::destroyed, [] { Kelmar::System::giveBackMemory(); });
}

Viewer::~Viewer()
{
  makeCurrent();
  _lastMouse.reset();
  _currentMouse.reset();
  _view.reset();
}

void Viewer::tree(boost::shared_ptr<orvex::Tree> tree)
{
  _view->tree(tree);
}

boost::shared_ptr<orvex::Tree> Viewer::tree() const
{
  return _view->tree();
}

void Viewer::updateScene()
{
  _view->update();
}

void Viewer::prepare()
{
  makeCurrent();
  if (QGLContext::currentContext() != context())
  {
    return;
  }
  _prepared = size() * devicePixelRatioF();
  _view->resize(static_cast<unsigned int>(_prepared.width()),
                static_cast<unsigned int>(_prepared.height()));
  _view->prepare();
}

orvex::render::DisplaySettings* Viewer::settings()
{
  return _view->settings();
}

const orvex::render::DisplaySettings* Viewer::settings() const
{
  return _view->settings();
}

orvex::render::CameraCladogram* Viewer::camera()
{
  return _view->camera();
}

const orvex::render::CameraCladogram* Viewer::camera() const
{
  return _view->camera();
}

void Viewer::writeImageFile(const std::string& name)
{
  Tools::Qt::saveImage(picture(), name);
}

QImage Viewer::picture()
{
  // Once a frame has been shown, the content of the buffer is undefined. So it is drawn again.
  makeCurrent();
  paintGL();
  const QSize pixels = size() * devicePixelRatioF();
  QImage image(pixels, QImage::Format_RGBX8888);
  orvex::render::gl::readFrame(static_cast<unsigned int>(pixels.width()),
                               static_cast<unsigned int>(pixels.height()), image.bits());
  return image.mirrored().convertToFormat(QImage::Format_RGB32);
}

void Viewer::mousePressEvent(QMouseEvent* event)
{
  // The release of the drag before is lost if a dialog came up in between.
  if (event->buttons() == event->button())
  {
    _endDrag();
  }
  _navigate(event);
  update();
}

void Viewer::mouseReleaseEvent(QMouseEvent* event)
{
  _navigate(event);
  _endDrag();
  update();
}

void Viewer::mouseMoveEvent(QMouseEvent* event)
{
  _navigate(event);
  update();
}

void Viewer::_endDrag()
{
  _currentMouse.reset();
  _lastMouse.reset();
}

void Viewer::_navigate(QMouseEvent* event)
{
  _lastMouse = _currentMouse;
  _currentMouse = boost::make_shared<Detail::MouseEvent>(Detail::toMouseEvent(*event, size()));
  if (_currentMouse && _lastMouse)
  {
    _view->handleNavigation(*_currentMouse, *_lastMouse);
  }
}

void Viewer::wheelEvent(QWheelEvent* event)
{
  // Turned sideways it has no amount, and a zoom by nothing could still meet a limit.
  if (event->angleDelta().y() == 0)
  {
    return;
  }
  _view->handleZoom(event->angleDelta().y() / 1000.0);
  update();
}

void Viewer::keyPressEvent(QKeyEvent* event)
{
  if (event->key() != ::Qt::Key_Space)
  {
    return;
  }
  // Held, as all that is counted is, so that it can't go while it is used.
  const boost::intrusive_ptr<orvex::render::CameraCladogram> held(camera());
  held->reset();
  update();
}

void Viewer::resizeGL(int width, int height)
{
  QGLWidget::resizeGL(width, height);
  // At a scale such as 1.25 Qt passes these two rounded down, but rounds the window's own size.
  const QSize pixels = size() * devicePixelRatioF();
  // To the view another resize would mean to prepare the frame again.
  if (std::exchange(_prepared, QSize()) != pixels)
  {
    _view->resize(static_cast<unsigned int>(pixels.width()),
                  static_cast<unsigned int>(pixels.height()));
  }
  _wasResized = true;
}

void Viewer::paintGL()
{
  _view->render();
  // On Wayland the buffer of this frame may have been taken at the size before, as a context takes
  // one when it is made current; that of the next frame has the new size. A compositor may show
  // this surface only from the next repaint of its window on.
  if (std::exchange(_wasResized, false) && QGuiApplication::platformName().startsWith("wayland"))
  {
    update();
    window()->update();
  }
}

} // namespace Lumbra
