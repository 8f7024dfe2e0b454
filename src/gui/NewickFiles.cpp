#include "gui/NewickFiles.h"

#include "gui/qt/Strings.h"
#include "tree/newick/NewickFile.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace Lumbra
{

Tools::Qt::FileDialog::Filters newickFilters()
{
  Tools::Qt::FileDialog::Filters filters;
  for (const std::string ending : orvex::newickEndings)
  {
    filters.emplace_back("Newick (*." + ending + ")", "*." + ending);
  }
  return filters;
}

std::string acceptNewickFile(QDropEvent& event)
{
  const QList<QUrl> urls = event.mimeData()->urls();
  std::string name =
      urls.size() == 1 ? Tools::Qt::fileName(urls.first().toLocalFile()) : std::string();
  if (!orvex::isNewickFile(name) || QApplication::activeModalWidget() ||
      !event.possibleActions().testFlag(::Qt::CopyAction))
  {
    return std::string();
  }
  // Whatever is proposed: who believes that a file was moved may remove it.
  event.setDropAction(::Qt::CopyAction);
  event.accept();
  return name;
}

} // namespace Lumbra
