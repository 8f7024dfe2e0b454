#pragma once

#include "gui/MainWindow.h"
#include "gui/Viewer.h"
#include "support/DisplayTest.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

struct Window : Lumbra::MainWindow
{
  using MainWindow::_documentNew;
  using MainWindow::_documentOpen;

  Lumbra::Viewer* viewer() const { return dynamic_cast<Lumbra::Viewer*>(centralWidget()); }
  QAction& action(const char* name) const { return *findChild<QAction*>(name); }
};

/// Types a name into a file dialog and confirms it; without a name it cancels.
inline void type(QFileDialog& dialog, const std::string& name)
{
  dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(name));
  QMetaObject::invokeMethod(&dialog, name.empty() ? "reject" : "accept");
}

/// Confirms a message box. \return its title and text
inline std::string confirm(QMessageBox& box)
{
  const std::string text = (box.windowTitle() + "|" + box.text()).toStdString();
  box.button(QMessageBox::Ok)->click();
  return text;
}

/// The message box that an action shows.
inline std::string boxAfter(const std::function<void()>& action)
{
  std::string text;
  answerDialog<QMessageBox>(action, [&](QMessageBox& box) { text = confirm(box); });
  return text;
}

/// Triggers by a posted event, since failures are only caught where the event loop sends events.
inline void triggerFromLoop(QAction& action)
{
  QMetaObject::invokeMethod(&action, "trigger", Qt::QueuedConnection);
  QCoreApplication::sendPostedEvents(&action);
}
