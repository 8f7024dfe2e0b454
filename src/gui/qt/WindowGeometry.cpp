#include "gui/qt/WindowGeometry.h"

#include "gui/qt/Settings.h"

#include <QWidget>

namespace Tools::Qt
{
namespace Detail
{
namespace
{

const char* const key = "main_window_geometry";

} // namespace
} // namespace Detail

void restoreWindowGeometry(QWidget& window)
{
  const QSize usual = window.size();
  window.restoreGeometry(setting(Detail::key).toByteArray());
  // From a damaged value Qt can make a window of one pixel, which a user could not find.
  if (window.size().expandedTo(window.minimumSizeHint()) != window.size())
  {
    window.resize(usual);
  }
}

void saveWindowGeometry(const QWidget& window)
{
  setting(Detail::key, window.saveGeometry());
}

} // namespace Tools::Qt
