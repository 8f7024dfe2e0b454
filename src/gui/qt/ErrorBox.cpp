#include "gui/qt/ErrorBox.h"

#include "gui/qt/Strings.h"

#include <QMessageBox>

namespace Tools::Qt
{

void showErrorBox(QWidget* parent, const std::string& title, const std::string& message)
{
  QMessageBox box(QMessageBox::Critical, text(title), text(message), QMessageBox::Ok, parent);
  box.setTextFormat(::Qt::PlainText);
  box.exec();
}

} // namespace Tools::Qt
