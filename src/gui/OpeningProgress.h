#pragma once

#include "foundation/progress/Listening.h"
#include "foundation/progress/PacedListener.h"

#include <QWidget>

#include <string>

class QLabel;
class QMainWindow;
class QProgressBar;

namespace Lumbra
{

/// Shows in the central area of a window how far the opening of a file is, until the end of the
/// scope. It appears when that has taken half a second, and is painted at once, so that the event
/// loop need not run. What the user did with keys and mouse in the scope is dropped.
class OpeningProgress : public Kelmar::Progress::PacedListener
{
public:
  /// \param name  of the file, in the file system's encoding
  OpeningProgress(QMainWindow& window, const std::string& name);
  ~OpeningProgress() override;

  /// The size of the central area, in units of the window.
  QSize size() const { return _area.size(); }

protected:
  void show(Kelmar::Progress::Stage stage, double share) override;

private:
  QWidget _area;
  QLabel* _name;
  QLabel* _stage;
  QProgressBar* _bar;
  Kelmar::Progress::Listening _listening;
};

} // namespace Lumbra
