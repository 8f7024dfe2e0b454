#include "shell/QtOutput.h"

#include "foundation/guard/TerminationReport.h"
#include "gui/qt/Strings.h"

#include <QGuiApplication>

#include <algorithm>
#include <iostream>
#include <stdexcept>

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

void handle(QtMsgType type, const QMessageLogContext&, const QString& message)
{
  try
  {
    qtOutput(type, Tools::Qt::text(message).c_str());
  }
  catch (...)
  {
  }
  // Qt, which has no platform then, would advise a new installation and abort.
  if (type == QtFatalMsg && QGuiApplication::platformName().isEmpty())
  {
    Kelmar::Functions::TerminationReport::end(std::runtime_error("no display can be reached"));
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

void installQtOutput()
{
  qInstallMessageHandler(Detail::handle);
}

} // namespace Helper
