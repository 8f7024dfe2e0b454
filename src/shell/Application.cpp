#include "shell/Application.h"

#include "foundation/guard/ExceptionHandler.h"
#include "gui/qt/ErrorBox.h"

#include <iostream>

namespace Brevan
{
namespace Detail
{
namespace
{

const char* const unknown = "Unknown error detected.";

// What was to be reported must not be lost in a failure of the box, nor end the event loop.
void showError(const char* message) noexcept
{
  try
  {
    Tools::Qt::showErrorBox(QApplication::activeWindow(), "Error detected.", message);
  }
  catch (...)
  {
  }
}

void logError(const std::exception& e) noexcept
{
  try
  {
    Kelmar::Functions::Helper::exceptionHandler("8033290760", e, std::cout);
  }
  catch (...)
  {
  }
}

} // namespace
} // namespace Detail

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
  // Of the widgets in a window, the viewer alone needs a native window. If those beside it had one
  // too, Wayland would show their changes in a wrong place.
  setAttribute(::Qt::AA_DontCreateNativeWidgetSiblings);
}

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
    Detail::showError(e.what() ? e.what() : Detail::unknown);
    Detail::logError(e);
  }
  catch (...)
  {
    Detail::showError(Detail::unknown);
  }
  return false;
}

} // namespace Brevan
