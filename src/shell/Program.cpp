#include "shell/Program.h"

#include "foundation/system/Terminal.h"
#include "foundation/system/UserDirectory.h"
#include "gui/MainWindow.h"
#include "gui/qt/Strings.h"
#include "shell/Application.h"
#include "shell/EndSignals.h"
#include "shell/QtOutput.h"
#include "shell/StreamRedirect.h"

#include <boost/filesystem/operations.hpp>

#include <algorithm>
#include <ios>
#include <string>

namespace Brevan
{
namespace Detail
{
namespace
{

void identify(const std::string& organisation, const std::string& domain, const std::string& name)
{
  using Tools::Qt::text;
  QCoreApplication::setOrganizationName(text(organisation));
  QCoreApplication::setOrganizationDomain(text(domain));
  QCoreApplication::setApplicationName(text(name));
  QCoreApplication::setApplicationVersion(ORVEX_VERSION);
  // By it a Wayland desktop finds the icon.
  QGuiApplication::setDesktopFileName("orvex-tree-viewer");
}

/// \param argc, argv  what Qt has left over of the arguments, after the program's own name
void answerArguments(int argc, const char* const* argv)
{
  if (argc < 2)
  {
    return;
  }
  const std::string hint = "no file is opened at start; use File > Open";
  const bool version = std::find(argv + 1, argv + argc, std::string("--version")) != argv + argc;
  Kelmar::System::tellOnTerminal(((version ? "version " ORVEX_VERSION "; " : "") + hint).c_str());
}

} // namespace
} // namespace Detail

int Program::run(int argc, char** argv)
{
  std::ios_base::sync_with_stdio(true);
  const std::string organisation = "TesmarGroup";
  const std::string domain = "tesmar.example";
  const std::string name = "Orvex Tree Viewer";

  const std::string directory = Kelmar::User::Directory::program(organisation, name);
  const std::string log = directory + "/" + name + ".stdout";
  Helper::installQtOutput(log);
  boost::filesystem::create_directories(directory);
  const StreamRedirect redirect(log);

  const Application application(argc, argv);
  Detail::answerArguments(argc, argv);
  Detail::identify(organisation, domain, name);

  const EndSignals ending;
  // After the names are set, since the window reads its settings under them.
  Lumbra::MainWindow window;
  window.setWindowTitle(Tools::Qt::text(name));
  window.setVisible(true);
  return QApplication::exec();
}

} // namespace Brevan
