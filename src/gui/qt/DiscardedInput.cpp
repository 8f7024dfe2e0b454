#include "gui/qt/DiscardedInput.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

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

void DiscardedInput::discard()
{
  auto* const filter = new DiscardedInput(QCoreApplication::instance());
  QCoreApplication::instance()->installEventFilter(filter);
  QTimer::singleShot(Detail::milliseconds, filter, &QObject::deleteLater);
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
