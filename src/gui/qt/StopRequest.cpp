#include "gui/qt/StopRequest.h"

#include "gui/qt/DiscardedInput.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace Tools::Qt
{

void StopRequest::look()
{
  std::vector<QSignalBlocker> silent;
  for (QAction* action : _window.findChildren<QAction*>())
  {
    silent.emplace_back(action);
  }
  QCoreApplication::instance()->installEventFilter(this);
  // With a limit it goes on until nothing waits. On Wayland it takes two rounds to get a key.
  constexpr int mostMilliseconds = 20;
  QCoreApplication::processEvents(QEventLoop::AllEvents, mostMilliseconds);
  QCoreApplication::instance()->removeEventFilter(this);
}

bool StopRequest::eventFilter(QObject*, QEvent* event)
{
  if (event->type() == QEvent::Close)
  {
    _wish = Wish::close;
    event->ignore();
    return true;
  }
  if (event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == ::Qt::Key_Escape)
  {
    _wish = std::max(_wish, Wish::stop);
  }
  return DiscardedInput::drop(*event);
}

} // namespace Tools::Qt
