#include "shell/QtOutput.h"

#include "foundation/guard/TerminationReport.h"
#include "gui/qt/Strings.h"

#include <QGuiApplication>

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string>

namespace Helper
{
namespace Detail
{
namespace
{

/// \return null if messages of this level are not written
const char* prefix(QtMsgType type)
{
  switch (type)
  {
  case QtDebugMsg:
    return "Qt Debug Message: ";
  case QtWarningMsg:
    return "Qt Warning Message: ";
  case QtCriticalMsg:
    return "Qt Critical Message: ";
  case QtFatalMsg:
    return "Qt Fatal Message: ";
  default:
    return nullptr;
  }
}

void write(QtMsgType type, std::string text)
{
  std::replace(text.begin(), text.end(), '\r', '\n');
  while (!text.empty() && text.back() == '\n')
  {
    text.pop_back();
  }
  if (const char* start = prefix(type))
  {
    std::cout << start + text + "\n" << std::flush;
  }
}

// A message handler is given neither of them.
std::string logName;
bool displayRefused = false;

// Qt ends with the same message whether its plugin found no display or could not be loaded; but the
// plugins that were loaded say before that they found none.
bool refusesDisplay(const QString& message)
{
  return message.contains("could not connect to display") ||
         message.contains("Failed to create wl_display");
}

// Qt, which has no platform then, would advise a new installation and abort.
[[noreturn]] void endWithoutPlatform()
{
  const std::string reason = displayRefused
                                 ? "no display can be reached"
                                 : "Qt can load no platform plugin for the display; see " + logName;
  Kelmar::Functions::TerminationReport::end(std::runtime_error(reason));
}

// When a dialog closes, Qt asks the X server where its window lies, which is gone by then. Nothing
// is wrong, and the log would gather such lines. All other errors of the server are kept.
bool isNoise(const QMessageLogContext& context, const QString& message)
{
  return qstrcmp(context.category, "qt.qpa.xcb") == 0 && message.contains("error: 3 (BadWindow)") &&
         message.contains("(TranslateCoords)");
}

void handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
  if (isNoise(context, message))
  {
    return;
  }
  try
  {
    qtOutput(type, Tools::Qt::text(message).c_str());
    displayRefused = displayRefused || refusesDisplay(message);
  }
  catch (...)
  {
  }
  if (type == QtFatalMsg && QGuiApplication::platformName().isEmpty())
  {
    endWithoutPlatform();
  }
}

} // namespace
} // namespace Detail

void qtOutput(QtMsgType type, const char* message)
{
  if (!message)
  {
    return;
  }
  try
  {
    Detail::write(type, message);
  }
  catch (...)
  {
  }
}

void installQtOutput(const std::string& log)
{
  Detail::logName = log;
  qInstallMessageHandler(Detail::handle);
}

} // namespace Helper
