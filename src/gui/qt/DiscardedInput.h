#pragma once

#include <QObject>

namespace Tools::Qt
{

/// Drops the keys, clicks, turns of the wheel and dragged files that came while the event loop
/// stood still. They were meant for what the user saw then, and would reach what stands there now.
class DiscardedInput : public QObject
{
public:
  /// To be called at the end of long work, from the thread of the application. Takes effect when
  /// the event loop goes on, also that of a dialog.
  static void discard();
  /// \return whether the event is such input; then it is marked, so that nothing comes of it
  static bool drop(QEvent& event);

  bool eventFilter(QObject* receiver, QEvent* event) override;

protected:
  void timerEvent(QTimerEvent* event) override;

private:
  explicit DiscardedInput(QObject* application);
};

} // namespace Tools::Qt
