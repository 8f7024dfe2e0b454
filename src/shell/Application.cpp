#include "shell/Application.h"

#include "gui/qt/ErrorBox.h"
#include "shell/base/ExceptionHandler.h"

#include <iostream>

namespace Brevan
{
namespace Detail
{
namespace
{

void showError(const char* message)
{
  Tools::Qt::showErrorBox(QApplication::activeWindow(), "Error detected.", message);
}

} // namespace
} // namespace Detail

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {}

bool Application::notify(QObject* receiver, QEvent* event)
{
  return _notify(receiver, event);
}

bool Application::_notify(QObject* receiver, QEvent* event)
{
  try
  {
    return QApplication::notify(receiver, event);
  }
  catch (const std::exception& e)
  {
    Detail::showError(e.what());
    Kelmar::Functions::Helper::exceptionHandler("8033290760", e, std::cout);
  }
  catch (...)
  {
    Detail::showError("Unknown error detected.");
  }
  return false;
}

} // namespace Brevan
