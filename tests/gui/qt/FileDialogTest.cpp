#include "gui/qt/FileDialog.h"

#include "support/Window.h"

#include <QDir>

namespace
{

using Tools::Qt::FileDialog;
using FileDialogs = DisplayTest;

const FileDialog::Filters filters{{"Newick (*.tre)", "*.tre"}, {"Newick (*.nwk)", "*.nwk"}};

/// Types a name, and chooses a filter. \return the directory and the filter that came up first
std::string answered(const std::string& title, const std::string& name, const QString& filter = "")
{
  QString start;
  answering<QFileDialog>(
      [&]
      {
        EXPECT_EQ(title == "Open" ? FileDialog::getOpenFileName(nullptr, title, filters)
                                  : FileDialog::getSaveFileName(nullptr, title, filters),
                  name);
      },
      [&](QFileDialog& dialog)
      {
        EXPECT_EQ(dialog.nameFilters(), QStringList({"Newick (*.nwk)", "Newick (*.tre)"}));
        start = dialog.directory().path() + "|" + dialog.selectedNameFilter();
        filter.isEmpty() ? void() : dialog.selectNameFilter(filter);
        orvex::test::type(dialog, name);
      });
  return start.toStdString();
}

TEST_F(FileDialogs, RememberDirectoryAndFilterForEachTitle)
{
  const std::string fresh = path("").substr(0, path("").size() - 1) + "|Newick (*.nwk)";
  QDir(QString::fromStdString(path(""))).mkdir("trees \u00e9");
  const std::string name = file("trees \u00e9/a \u00e9.tre", "(a,b);");
  EXPECT_EQ(answered("Open", name, "Newick (*.tre)"), fresh);
  const std::string chosen = path("trees \u00e9") + "|Newick (*.tre)";
  EXPECT_EQ(answered("Open", ""), chosen);
  EXPECT_EQ(answered("Open", ""), chosen) << "cancelling stores nothing";
  EXPECT_EQ(answered("Export Image", path("new.nwk")), fresh) << "each title has its own memory";
  qunsetenv("HOME");
  answered("Another", "");
  EXPECT_EQ(log(),
            "Error 2637892413: Error 2322383190: Failed to find user's document directory\n");
}

} // namespace
