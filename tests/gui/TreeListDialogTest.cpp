#include "gui/TreeListDialog.h"

#include "DisplayTest.h"
#include "tree/TreeData.h"

#include <boost/make_shared.hpp>

#include <QTreeWidget>

namespace
{

using TreeListDialog = DisplayTest;

TEST_F(TreeListDialog, ShowsTheListInItsOrderAndGivesTheSelectedRow)
{
  const auto row = [](int id, const char* name) {
    return boost::make_shared<orvex::TreeData>(orvex::TreeData{id, name});
  };
  const Lumbra::TreeListDialog dialog({row(7, "birds"), nullptr, row(-2, "\xc3\xa9toiles")},
                                      nullptr);
  auto* rows = dialog.findChild<QTreeWidget*>();
  ASSERT_EQ(rows->topLevelItemCount(), 2);
  EXPECT_EQ(rows->topLevelItem(0)->text(1), "birds");
  EXPECT_EQ(rows->headerItem()->text(0) + " " + rows->headerItem()->text(1), "id name");

  orvex::TreeData answer{5, "before"};
  EXPECT_FALSE(dialog.getSelectedTree(answer)) << "no row is selected at first";
  EXPECT_EQ(answer.name, "before");
  rows->topLevelItem(1)->setSelected(true);
  EXPECT_TRUE(dialog.getSelectedTree(answer));
  EXPECT_EQ(answer.id, -2);
  EXPECT_EQ(answer.name, "\xc3\xa9toiles");
}

} // namespace
