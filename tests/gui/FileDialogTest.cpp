#include "gui/FileDialog.h"

#include "gui/Window.h"

#include <QDir>

namespace
{

using orvex::test::type;
using Tools::Qt::FileDialog;
using FileDialogs = DisplayTest;

const FileDialog::Filters filters{{"Newick (*.tre)", "*.tre"}, {"Newick (*.nwk)", "*.nwk"}};

/// \return the directory and the filter in which the dialog of that title opens
std::string start(const std::string& title)
{
  QString result;
  const Answer<QFileDialog> cancel(
      [&](QFileDialog& dialog)
      {
        EXPECT_EQ(dialog.nameFilters(), QStringList({"Newick (*.nwk)", "Newick (*.tre)"}));
        result = dialog.directory().path() + "|" + dialog.selectedNameFilter();
        type(dialog, "");
      });
  EXPECT_EQ(FileDialog::getOpenFileName(nullptr, title, filters), "");
  return result.toStdString();
}

TEST_F(FileDialogs, RememberDirectoryAndFilterForEachTitle)
{
  const std::string fresh = path("").substr(0, path("").size() - 1) + "|Newick (*.nwk)";
  EXPECT_EQ(start("Open"), fresh);
  QDir(QString::fromStdString(path(""))).mkdir("trees \u00e9");
  const std::string name = file("trees \u00e9/a \u00e9.tre", "(a,b);");
  {
    const Answer<QFileDialog> answer(
        [&](QFileDialog& dialog)
        {
          dialog.selectNameFilter("Newick (*.tre)");
          type(dialog, name);
        });
    EXPECT_EQ(FileDialog::getOpenFileName(nullptr, "Open", filters), name);
  }
  for (int i = 0; i < 2; ++i) // cancelling stores nothing
  {
    EXPECT_EQ(start("Open"), path("trees \u00e9") + "|Newick (*.tre)");
  }
  EXPECT_EQ(start("Export Image"), fresh) << "each title has a memory of its own";
  {
    const Answer<QFileDialog> answer([&](auto& dialog) { type(dialog, path("new.nwk")); });
    EXPECT_EQ(FileDialog::getSaveFileName(nullptr, "Export Image", filters), path("new.nwk"));
  }
  file("b.nwk", "");
  file("c.nwk", "");
  std::vector<std::string> names{"earlier"};
  for (const std::string typed : {"\"b.nwk\" \"c.nwk\"", ""})
  {
    const Answer<QFileDialog> answer([&](auto& dialog) { type(dialog, typed); });
    FileDialog::getOpenFileNames(nullptr, "Export Image", filters, names);
    EXPECT_EQ(names.size(), typed.empty() ? 0u : 2u);
  }
  const QSettings settings(QSettings::IniFormat, QSettings::UserScope, "TesmarGroup",
                           "Orvex Tree Viewer");
  EXPECT_EQ(settings.allKeys().join(" "),
            "file_dialog.last_directory.Export_Image file_dialog.last_directory.Open "
            "file_dialog.last_filter.Export_Image file_dialog.last_filter.Open");
  qunsetenv("HOME");
  start("Another");
  EXPECT_EQ(log(),
            "Error 2637892413: Error 2322383190: Failed to find user's document directory\n");
}

} // namespace
