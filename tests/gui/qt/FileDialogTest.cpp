#include "gui/qt/FileDialog.h"

#include "support/Window.h"

#include <QDir>

using Tools::Qt::FileDialog;

/// What a dialog showed when it came up, and the name that it gave.
using Answer = std::pair<std::string, std::string>;

class FileDialogTest : public DisplayTest
{
protected:
  /// Types a name, or cancels without one, and chooses a filter.
  static Answer ask(const std::string& title, const std::string& name, const QString& filter = "")
  {
    const FileDialog::Filters filters{{"Newick (*.tre)", "*.tre"}, {"Newick (*.nwk)", "*.nwk"}};
    Answer answer;
    answerDialog<QFileDialog>(
        [&]
        {
          answer.second = title == "Open" ? FileDialog::getOpenFileName(nullptr, title, filters)
                                          : FileDialog::getSaveFileName(nullptr, title, filters);
        },
        [&](QFileDialog& dialog)
        {
          EXPECT_EQ(dialog.nameFilters(), QStringList({"Newick (*.nwk)", "Newick (*.tre)"}));
          EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), "") << "no name is proposed";
          answer.first =
              (dialog.directory().path() + "|" + dialog.selectedNameFilter()).toStdString();
          filter.isEmpty() ? void() : dialog.selectNameFilter(filter);
          type(dialog, name);
        });
    return answer;
  }

  const std::string home = path("").substr(0, path("").size() - 1);
};

TEST_F(FileDialogTest, RemembersDirectoryAndFilterForEachTitle)
{
  QDir(QString::fromStdString(home)).mkdir("trees \u00e9");
  const std::string name = file("trees \u00e9/a \u00e9.tre", "(a,b);");
  EXPECT_EQ(ask("Open", name, "Newick (*.tre)"), Answer(home + "|Newick (*.nwk)", name));
  const std::string remembered = path("trees \u00e9") + "|Newick (*.tre)";
  EXPECT_EQ(ask("Open", ""), Answer(remembered, ""));
  EXPECT_EQ(ask("Open", ""), Answer(remembered, "")) << "cancelling stores nothing";
  QDir(QString::fromStdString(path("trees \u00e9"))).removeRecursively();
  EXPECT_EQ(ask("Open", ""), Answer(home + "|Newick (*.tre)", "")) << "the directory is gone";
  const std::string other = path("new.nwk");
  EXPECT_EQ(ask("Export Image", other), Answer(home + "|Newick (*.nwk)", other));
}

TEST_F(FileDialogTest, GivesSeveralNamesAndRemembersTheirDirectory)
{
  const std::vector<std::string> names{file("a.nwk", ""), file("b c.nwk", "")};
  std::vector<std::string> answer{"of the time before"};
  for (const char* typed : {R"("a.nwk" "b c.nwk")", ""})
  {
    answerDialog<QFileDialog>(
        [&] {
          FileDialog::getOpenFileNames(nullptr, "Add", {{"All", "*"}}, answer);
        },
        [&](QFileDialog& dialog)
        {
          dialog.setDirectory(QString::fromStdString(home));
          type(dialog, typed);
        });
    EXPECT_EQ(answer, *typed ? names : std::vector<std::string>{});
  }
  EXPECT_EQ(ask("Add", "").first.substr(0, home.size()), home);
}

TEST_F(FileDialogTest, OpensWithoutAHomeDirectoryAndLogsThat)
{
  qunsetenv("HOME");
  ask("Open", "");
  EXPECT_EQ(log(),
            "Error 2637892413: Error 2322383190: Failed to find user's document directory\n");
}
