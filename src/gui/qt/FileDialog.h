#pragma once

#include <list>
#include <string>
#include <utility>
#include <vector>

class QString;
class QWidget;

namespace Tools::Qt
{

/// Asks for file names. For each title it remembers the last directory and the last filter in the
/// user's settings; a cancelled dialog changes neither. The dialogs are modal.
class FileDialog
{
public:
  /// The label that is shown, with its pattern in brackets, and the bare pattern.
  using Filter = std::pair<std::string, std::string>;
  using Filters = std::list<Filter>;

  FileDialog() = delete;

  /// \return empty if the user cancelled
  static std::string getOpenFileName(QWidget* parent, const std::string& title,
                                     const Filters& filters);
  /// \return empty if the user cancelled
  static std::string getSaveFileName(QWidget* parent, const std::string& title,
                                     const Filters& filters);
  /// \param answer  replaced by the chosen names; empty if the user cancelled
  static void getOpenFileNames(QWidget* parent, const std::string& title, const Filters& filters,
                               std::vector<std::string>& answer);

private:
  template <class Ask>
  static std::string _ask(const std::string& title, const Filters& filters, Ask ask);
  static void _remember(const std::string& title, const std::string& name,
                        const QString& selectedFilter);

  static std::string _formatFilters(const Filters& filters);
  // A failure of the settings is reported on std::cout; the dialog goes on without them.
  static QString _lastFileDialogDir(const std::string& title);
  static void _lastFileDialogDir(const std::string& title, const std::string& directory);
  static QString _lastFileDialogFilter(const std::string& title);
  static void _lastFileDialogFilter(const std::string& title, const std::string& filter);
};

} // namespace Tools::Qt
