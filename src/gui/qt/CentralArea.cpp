#include "gui/qt/CentralArea.h"

#include <QMainWindow>

namespace Tools::Qt
{

QRect centralArea(const QMainWindow& window)
{
  QRect area = window.contentsRect();
  const QWidget* const menu = window.menuWidget();
  if (menu && menu->isVisibleTo(&window)) // a desktop may show it in another place
  {
    area.setTop(menu->geometry().bottom() + 1);
  }
  return area;
}

} // namespace Tools::Qt
