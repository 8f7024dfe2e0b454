#include "gui/qt/DiscardedInput.h"

#include <QCoreApplication>
#include <QEvent>

namespace Tools::Qt
{
DiscardedInput::DiscardedInput(QObject* application) : QObject(application)
{
  application->installEventFilter(this);
  startTimer(0);
}

void DiscardedInput::discard()
{
  new DiscardedInput(QCoreApplication::instance());
}

// The event loop delivers the input that waits first: a timer without a delay comes after it, and a
// deletion comes in a later round.
void DiscardedInput::timerEvent(QTimerEvent*)
{
  deleteLater();
}

bool DiscardedInput::eventFilter(QObject*, QEvent* event)
{
  return drop(*event);
}

bool DiscardedInput::drop(QEvent& event)
{
  switch (event.type())
  {
  case QEvent::DragEnter:
  case QEvent::DragMove:
  case QEvent::Drop:
    event.ignore();
    return true;
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseMove:
  case QEvent::ShortcutOverride:
  case QEvent::Wheel:
    event.accept(); // an override that is not accepted would still become a shortcut
    return true;
  default:
    return false;
  }
}

} // namespace Tools::Qt
