#pragma once

#include "foundation/progress/Listening.h"
#include "foundation/progress/PacedListener.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QMainWindow;
class QProgressBar;

namespace Lumbra
{

/// Shows in a window how far the opening of a tree is, until the end of the scope. It appears when
/// that has taken half a second, in place of the central widget, and is painted at once, so that
/// the event loop need not run. What the user did with keys and mouse in the scope is dropped.
class OpeningProgress : public Kelmar::Progress::PacedListener
{
public:
  /// \param area  where it appears, in coordinates of the window
  /// \param name  of the tree
  OpeningProgress(QMainWindow& window, const QRect& area, const QString& name);
  ~OpeningProgress() override;

protected:
  void show(const Kelmar::Progress::Stage& stage, double share) override;

private:
  void _appear();

  QMainWindow& _window;
  // What was hidden when this appeared; null if nothing was, or if it is gone.
  QPointer<QWidget> _covered;
  QWidget _area;
  QLabel* _name;
  QLabel* _stage;
  QProgressBar* _bar;
  Kelmar::Progress::Listening _listening;
};

} // namespace Lumbra
