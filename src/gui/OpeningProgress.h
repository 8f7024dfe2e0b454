#pragma once

#include "foundation/progress/Listening.h"
#include "foundation/progress/PacedListener.h"
#include "gui/qt/StopRequest.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QMainWindow;
class QProgressBar;

namespace Lumbra
{

/// Shows in a window how far the opening of a tree is, until the end of the scope. It appears when
/// that has taken half a second, in place of the central widget, and is painted at once, so that
/// the event loop need not run. What the user did with keys and mouse in the scope is dropped; but
/// from then on Escape and the close button stop the opening.
class OpeningProgress : public Kelmar::Progress::PacedListener
{
public:
  /// \param name  of the tree
  OpeningProgress(QMainWindow& window, const QString& name);
  ~OpeningProgress() override;

  /// Shows the viewer that was made. Where it has a native window, its first frame comes later than
  /// the window's own; a compositor would show through, as Qt leaves the place empty. So what the
  /// user saw until then stays there for a moment: over the viewer among the window's widgets, but
  /// under its native window.
  void reveal(QWidget& viewer);

  /// What the user has asked for so far.
  Tools::Qt::StopRequest::Wish wish() const { return _request.wish(); }
  /// To be called when the opening has failed, for what the user asks for at the same time.
  void lookAgain() { _request.look(); }

protected:
  /// \throws Kelmar::Progress::Stopped  if the user has asked for it
  void show(const Kelmar::Progress::Stage& stage, double share) override;

private:
  void _appear();

  QMainWindow& _window;
  // What was hidden when this appeared; null if nothing was, or if it is gone.
  QPointer<QWidget> _covered;
  // A child of the window.
  QWidget* _area;
  bool _isHandedOver = false;
  QLabel* _name;
  QLabel* _stage;
  QProgressBar* _bar;
  Tools::Qt::StopRequest _request;
  Kelmar::Progress::Listening _listening;
};

} // namespace Lumbra
