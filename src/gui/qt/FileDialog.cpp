#include "gui/qt/FileDialog.h"

#include "foundation/guard/Guarded.h"
#include "foundation/system/UserDirectory.h"
#include "gui/qt/Settings.h"
#include "gui/qt/Strings.h"

#include <boost/filesystem/path.hpp>

#include <QFileDialog>
#include <QFileInfo>
#include <QStringList>

#include <iostream>

namespace Tools::Qt
{
namespace Detail
{
namespace
{

using Kelmar::Functions::guarded;

const char* const FILE_DIALOG = "file_dialog";
const char* const LAST_DIRECTORY = "last_directory";
const char* const LAST_FILTER = "last_filter";

QString key(const char* value, const std::string& title)
{
  return QStringList({FILE_DIALOG, value, text(title)}).join('.').replace(' ', '_');
}

// A dialog takes the last name of a directory that is gone for the name of a file. An empty name
// means Qt's default.
bool isUsable(const QVariant& directory)
{
  const QString name = directory.toString();
  return directory.isValid() && (name.isEmpty() || QFileInfo(name).isDir());
}

} // namespace
} // namespace Detail

template <class Ask>
std::string FileDialog::_ask(const std::string& title, const Filters& filters, Ask ask)
{
  const std::string all = _formatFilters(filters);
  const QString directory = _lastFileDialogDir(title);
  QString selected = _lastFileDialogFilter(title);
  const QString chosen = ask(text(title), directory, text(all), &selected);
  if (chosen.isEmpty())
  {
    return std::string();
  }
  std::string name = fileName(chosen);
  _remember(title, name, selected);
  return name;
}

std::string FileDialog::getOpenFileName(QWidget* parent, const std::string& title,
                                        const Filters& filters)
{
  return _ask(title, filters,
              [parent](auto&&... arguments)
              { return QFileDialog::getOpenFileName(parent, arguments...); });
}

std::string FileDialog::getSaveFileName(QWidget* parent, const std::string& title,
                                        const Filters& filters)
{
  return _ask(title, filters,
              [parent](auto&&... arguments)
              { return QFileDialog::getSaveFileName(parent, arguments...); });
}

void FileDialog::getOpenFileNames(QWidget* parent, const std::string& title, const Filters& filters,
                                  std::vector<std::string>& answer)
{
  answer.clear();
  QStringList names;
  // What is remembered is the directory of the first name.
  _ask(title, filters,
       [parent, &names](auto&&... arguments)
       {
         names = QFileDialog::getOpenFileNames(parent, arguments...);
         return names.value(0);
       });
  for (const QString& name : names)
  {
    answer.push_back(fileName(name));
  }
}

void FileDialog::_remember(const std::string& title, const std::string& name,
                           const QString& selectedFilter)
{
  _lastFileDialogDir(title, boost::filesystem::path(name).parent_path().string());
  _lastFileDialogFilter(title, text(selectedFilter));
}

std::string FileDialog::_formatFilters(const Filters& filters)
{
  QStringList labels;
  for (const Filter& filter : filters)
  {
    labels.append(text(filter.first));
  }
  labels.sort();
  return text(labels.join(";;"));
}

QString FileDialog::_lastFileDialogDir(const std::string& title)
{
  QString answer;
  Detail::guarded(
      [&]
      {
        const QVariant stored = setting(Detail::key(Detail::LAST_DIRECTORY, title));
        answer = Detail::isUsable(stored) ? stored.toString()
                                          : fileName(Kelmar::User::Directory::documents());
      },
      "2637892413", std::cout);
  return answer;
}

void FileDialog::_lastFileDialogDir(const std::string& title, const std::string& directory)
{
  Detail::guarded([&] { setting(Detail::key(Detail::LAST_DIRECTORY, title), fileName(directory)); },
                  "1470916380", std::cout);
}

QString FileDialog::_lastFileDialogFilter(const std::string& title)
{
  QString answer;
  Detail::guarded([&] { answer = setting(Detail::key(Detail::LAST_FILTER, title)).toString(); },
                  "4010857611", std::cout);
  return answer;
}

void FileDialog::_lastFileDialogFilter(const std::string& title, const std::string& filter)
{
  Detail::guarded([&] { setting(Detail::key(Detail::LAST_FILTER, title), text(filter)); },
                  "1056012768", std::cout);
}

} // namespace Tools::Qt
