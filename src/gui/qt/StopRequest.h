#pragma once

#include <QObject>

class QWidget;

namespace Tools::Qt
{

/// Whether the user wants long work to stop, during which the event loop stands still: by Escape,
/// or by closing the window, as a signal does, too.
///
/// It is the one place where events are handled in the middle of such work. An opening of minutes
/// that can't be stopped, in a window that the desktop takes for dead, would be worse. Qt has no
/// way to look at the waiting events that serves every platform, so all are handled, and those are
/// kept away that could do something: keys, clicks and drops are dropped, and the actions of the
/// window trigger nothing, whoever sets them off. What stays is that the window is painted, follows
/// its size, and answers the window system's question whether the program is alive.
class StopRequest : public QObject
{
public:
  enum class Wish
  {
    none,
    stop,
    close,
  };

  /// \param window  whose actions are kept silent; must outlive the object
  explicit StopRequest(QWidget& window) : _window(window) {}

  /// Handles the events that wait, within some hundredths of a second. Widgets that must not be
  /// painted or change their size have to be hidden.
  void look();
  /// The strongest one so far.
  Wish wish() const { return _wish; }

  bool eventFilter(QObject* receiver, QEvent* event) override;

private:
  QWidget& _window;
  Wish _wish = Wish::none;
};

} // namespace Tools::Qt
