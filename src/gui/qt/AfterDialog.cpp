#include "gui/qt/AfterDialog.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QWidget>

namespace Tools::Qt
{
namespace Detail
{
namespace
{

constexpr qint64 milliseconds = 100;

// What is painted while the window manager's frame is still there is lost under it. When the frame
// is gone, the window is made the active one. Without a window manager there is no frame.
void waitUntilActive(const QWidget& window)
{
  QElapsedTimer timer;
  timer.start();
  while (window.isVisible() && !window.isActiveWindow() && timer.elapsed() < milliseconds)
  {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QThread::msleep(1);
  }
}

} // namespace
} // namespace Detail

bool repaintAfterDialog(QWidget& window)
{
  const bool wasVisible = window.isVisible();
  Detail::waitUntilActive(window);
  window.repaint();
  return window.isVisible() == wasVisible;
}

} // namespace Tools::Qt
