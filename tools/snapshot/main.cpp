// Draws a tree file as the viewer does and writes the picture. For pixels it needs a display, which
// may be virtual.

#include "foundation/system/LargePages.h"
#include "foundation/system/StackLimit.h"
#include "gui/qt/ImageFile.h"
#include "gui/qt/Strings.h"
#include "render/gl/font/FreeType.h"
#include "snapshot/Document.h"
#include "snapshot/PartOfWork.h"
#include "snapshot/Picture.h"
#include "snapshot/Request.h"
#include "terminal/Options.h"
#include "terminal/TerminalProgress.h"
#include "tree/Document.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <QCommandLineParser>
#include <QGuiApplication>

#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using orvex::snapshot::Request;
using Tools::Qt::text;

const char* const seeHelp = " See orvex-snapshot --help.";

boost::shared_ptr<orvex::Tree> readTree(const std::string& name)
{
  const boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
  try
  {
    document->read(name);
  }
  catch (const std::exception& e)
  {
    throw std::runtime_error("can't read '" + name + "': " + e.what());
  }
  if (!document->getTree())
  {
    throw std::runtime_error("no tree in '" + name + "'; .tre and .nwk files in Newick are read");
  }
  return document->getTree();
}

void write(const QImage& picture, const std::string& name)
{
  const std::string failure = Tools::Qt::saveImage(picture, name);
  if (!failure.empty())
  {
    throw std::runtime_error("can't write '" + name + "': " + failure);
  }
}

void writeDocument(const Request& request)
{
  std::vector<std::string> notes;
  {
    // Drawing takes as long as all before it.
    std::optional<orvex::snapshot::PartOfWork> opening(std::in_place, 0.0, 0.5);
    const boost::shared_ptr<orvex::Tree> tree = readTree(request.tree);
    orvex::snapshot::Document document(tree, request);
    opening.reset();
    const orvex::snapshot::PartOfWork drawing(0.5, 1.0);
    notes = document.write();
  }
  for (const std::string& note : notes)
  {
    std::cerr << "orvex-snapshot: " << note << '\n';
  }
}

// If the display can't be reached, Qt writes a fatal message and aborts the program.
void handleMessage(QtMsgType type, const QMessageLogContext&, const QString&)
{
  if (type == QtFatalMsg)
  {
    std::cerr << "orvex-snapshot: no display can be reached\n" << std::flush;
    std::_Exit(EXIT_FAILURE);
  }
}

QStringList toArguments(int argc, char** argv)
{
  QStringList arguments;
  for (int i = 0; i < argc; ++i)
  {
    arguments.append(Tools::Qt::fileName(std::string(argv[i])));
  }
  return arguments;
}

std::string hintForDash(const QStringList& arguments)
{
  std::string hint;
  for (const QString& argument : arguments)
  {
    hint += hint.empty() ? orvex::terminal::hintForFile(Tools::Qt::fileName(argument)) : "";
  }
  return hint;
}

void run(int argc, char** argv)
{
  QCommandLineParser parser;
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  orvex::snapshot::describe(parser);
  if (!parser.parse(toArguments(argc, argv)))
  {
    throw std::invalid_argument(text(parser.errorText()) + hintForDash(toArguments(argc, argv)) +
                                seeHelp);
  }
  // Qt would take some arguments for options of its own.
  int one = 1;
  if (parser.isSet("help"))
  {
    const QCoreApplication application(one, argv); // the help names it
    std::cout << text(parser.helpText()) << std::flush;
    return;
  }
  const Request request = orvex::snapshot::toRequest(parser);
  const bool needsDisplay = request.kind == Request::Kind::Pixels && !request.whole;
  if (!needsDisplay)
  {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // in any session, and without one
  }
  // Before the tree is read, which can take long.
  const QGuiApplication application(one, argv);
  const orvex::terminal::TerminalProgress progress;
  if (needsDisplay)
  {
    write(orvex::snapshot::drawPicture(readTree(request.tree), request.look), request.image);
  }
  else
  {
    writeDocument(request);
  }
  orvex::render::gl::FreeType::destroy();
}

} // namespace

int main(int argc, char** argv)
{
  Kelmar::System::LargePages::prefer();
  Kelmar::System::raiseStackLimit();
  qInstallMessageHandler(handleMessage);
  argv[0] = program_invocation_short_name; // the help begins with it
  try
  {
    run(argc, argv);
    return EXIT_SUCCESS;
  }
  catch (const std::exception& e)
  {
    std::cerr << "orvex-snapshot: " << e.what() << '\n';
    return EXIT_FAILURE;
  }
}
