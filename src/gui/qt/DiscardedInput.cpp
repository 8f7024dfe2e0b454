#include "gui/qt/DiscardedInput.h"

#include <QCoreApplication>
#include <QEvent>

namespace Tools::Qt
{
namespace Detail
{
namespace
{

// What waits is delivered when the loop goes on, all at once. This is more than that takes, and
// less than a user needs for an answer to what appears then.
constexpr int milliseconds = 100;

} // namespace
} // namespace Detail

DiscardedInput::DiscardedInput(QObject* application) : QObject(application)
{
  application->installEventFilter(this);
  startTimer(Detail::milliseconds);
}

void DiscardedInput::discard()
{
  new DiscardedInput(QCoreApplication::instance());
}

void DiscardedInput::timerEvent(QTimerEvent*)
{
  deleteLater();
}

bool DiscardedInput::eventFilter(QObject*, QEvent* event)
{
  switch (event->type())
  {
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseMove:
  case QEvent::ShortcutOverride:
  case QEvent::Wheel:
    event->accept(); // an override that is not accepted would still become a shortcut
    return true;
  default:
    return false;
  }
}

} // namespace Tools::Qt
