#pragma once

#include <boost/shared_ptr.hpp>

#include <QDialog>

#include <vector>

class Ui_TreeListDialog;

namespace orvex
{
struct TreeData;
}

namespace Lumbra
{

/// Lets the user pick one of the service's trees: a list of ids and names with Ok and Cancel.
class TreeListDialog : public QDialog
{
public:
  /// \param trees  shown in their order; null pointers are left out
  TreeListDialog(const std::vector<boost::shared_ptr<orvex::TreeData>>& trees, QWidget* parent);
  ~TreeListDialog() override;

  /// Fills \p answer from the selected row, or leaves it as it is and returns false if there is
  /// none.
  bool getSelectedTree(orvex::TreeData& answer) const;

private:
  std::vector<boost::shared_ptr<orvex::TreeData>> _trees;
  Ui_TreeListDialog* _ui;
};

} // namespace Lumbra
