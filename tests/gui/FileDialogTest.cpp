#include "gui/FileDialog.h"

#include "DisplayTest.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

namespace
{

using Tools::Qt::FileDialog;

const FileDialog::Filters filters{{"Newick (*.tre)", "*.tre"}, {"Newick (*.nwk)", "*.nwk"}};

/// Types a name into the dialog, as a user does, and presses Enter. Empty cancels.
std::function<void(QFileDialog&)> typing(const std::string& name, QString filter = {},
                                         QString* directory = nullptr, QString* selected = nullptr)
{
  return [=](QFileDialog& dialog)
  {
    EXPECT_EQ(dialog.nameFilters(), QStringList({"Newick (*.nwk)", "Newick (*.tre)"}));
    if (directory)
    {
      *directory = dialog.directory().dirName();
      *selected = dialog.selectedNameFilter();
    }
    if (!filter.isEmpty())
    {
      dialog.selectNameFilter(filter);
    }
    dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(name));
    QMetaObject::invokeMethod(&dialog, name.empty() ? "reject" : "accept");
  };
}

class FileDialogs : public DisplayTest
{
protected:
  /// \return the directory and filter in which the dialog of that title opens
  std::pair<QString, QString> start(const std::string& title)
  {
    std::pair<QString, QString> result;
    const Answer<QFileDialog> cancel(typing("", {}, &result.first, &result.second));
    EXPECT_EQ(FileDialog::getOpenFileName(nullptr, title, filters), "");
    return result;
  }
};

TEST_F(FileDialogs, RememberDirectoryAndFilterForEachTitle)
{
  const QString home = QDir(QString::fromStdString(path(""))).dirName();
  using Start = std::pair<QString, QString>;
  const Start fresh(home, "Newick (*.nwk)");
  EXPECT_EQ(start("Open"), fresh);

  QDir(QString::fromStdString(path(""))).mkdir("trees \u00e9");
  const std::string name = file("trees \u00e9/a \u00e9.tre", "(a,b);");
  {
    const Answer<QFileDialog> type(typing(name, "Newick (*.tre)"));
    EXPECT_EQ(FileDialog::getOpenFileName(nullptr, "Open", filters), name);
  }
  EXPECT_EQ(start("Open"), Start("trees \u00e9", "Newick (*.tre)"));
  EXPECT_EQ(start("Open"), Start("trees \u00e9", "Newick (*.tre)")) << "cancelling stores nothing";
  EXPECT_EQ(start("Export Image"), fresh) << "each title has a memory of its own";
  {
    const Answer<QFileDialog> type(typing(path("new.nwk")));
    EXPECT_EQ(FileDialog::getSaveFileName(nullptr, "Export Image", filters), path("new.nwk"));
  }
  const QSettings settings(QSettings::IniFormat, QSettings::UserScope, "TesmarGroup",
                           "Orvex Tree Viewer");
  EXPECT_EQ(
      settings.allKeys(),
      QStringList({"file_dialog.last_directory.Export_Image", "file_dialog.last_directory.Open",
                   "file_dialog.last_filter.Export_Image", "file_dialog.last_filter.Open"}));
}

TEST_F(FileDialogs, GiveSeveralNamesInPlaceOfEarlierOnes)
{
  file("a.nwk", "");
  file("b.nwk", "");
  std::vector<std::string> names{"earlier"};
  {
    const Answer<QFileDialog> type(typing("\"a.nwk\" \"b.nwk\""));
    FileDialog::getOpenFileNames(nullptr, "Open", filters, names);
  }
  EXPECT_EQ(names, (std::vector<std::string>{path("a.nwk"), path("b.nwk")}));
  const Answer<QFileDialog> cancel(typing(""));
  FileDialog::getOpenFileNames(nullptr, "Open", filters, names);
  EXPECT_TRUE(names.empty());
}

TEST_F(FileDialogs, OpenEvenWithoutAHome)
{
  qunsetenv("HOME");
  start("Open");
  EXPECT_EQ(log(),
            "Error 2637892413: Error 2322383190: Failed to find user's document directory\n");
}

} // namespace
