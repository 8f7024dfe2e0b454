#include "gui/TreeListDialog.h"

#include "gui/qt/Strings.h"
#include "tree/service/TreeData.h"
#include "ui_TreeListDialog.h"

#include <boost/lexical_cast.hpp>

namespace Lumbra
{

TreeListDialog::TreeListDialog(const std::vector<boost::shared_ptr<orvex::TreeData>>& trees,
                               QWidget* parent)
    : QDialog(parent), _trees(trees), _ui(new Ui_TreeListDialog)
{
  using Tools::Qt::text;
  _ui->setupUi(this);
  _ui->treeWidget->setHeaderLabels({"id", "name"});
  for (const auto& tree : _trees)
  {
    if (!tree)
    {
      continue;
    }
    // The constructor appends the item to the list, which then owns it.
    auto* item = new QTreeWidgetItem(_ui->treeWidget);
    item->setText(0, text(boost::lexical_cast<std::string>(tree->id)));
    item->setText(1, text(tree->name));
  }
}

TreeListDialog::~TreeListDialog()
{
  delete _ui;
}

bool TreeListDialog::getSelectedTree(orvex::TreeData& answer) const
{
  const QList<QTreeWidgetItem*> selected = _ui->treeWidget->selectedItems();
  if (selected.isEmpty())
  {
    return false;
  }
  const QTreeWidgetItem* item = selected.first();
  answer.id = boost::lexical_cast<int>(Tools::Qt::text(item->text(0)));
  answer.name = Tools::Qt::text(item->text(1));
  return true;
}

} // namespace Lumbra
