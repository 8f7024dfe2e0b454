// Draws a tree file as the viewer does and writes the picture. Needs a display, which may be
// virtual.

#include "foundation/system/LargePages.h"
#include "foundation/system/StackLimit.h"
#include "gui/qt/ImageFile.h"
#include "gui/qt/Strings.h"
#include "render/gl/font/FreeType.h"
#include "snapshot/Picture.h"
#include "terminal/Options.h"
#include "terminal/TerminalProgress.h"
#include "tree/Document.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <QCommandLineParser>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <stdexcept>

namespace
{

using Tools::Qt::text;

const char* const seeHelp = " See orvex-snapshot --help.";
// With more pixels the buffers of a frame, which have four samples for each, are too large for
// usual memories.
constexpr int largestSide = 8192;

struct Request
{
  std::string tree;
  std::string image;
  orvex::snapshot::Look look;
};

QSize toSize(const QString& value)
{
  const auto match = QRegularExpression("^(\\d{1,5})x(\\d{1,5})$").match(value);
  const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
  if (size.isEmpty() || size.width() > largestSide || size.height() > largestSide)
  {
    throw std::invalid_argument("'" + text(value) + "' is no size such as 1000x600, from 1x1 to " +
                                std::to_string(largestSide) + "x" + std::to_string(largestSide));
  }
  return size;
}

double toNumber(const QCommandLineParser& parser, const QString& option)
{
  const QString value = parser.value(option);
  bool valid = false;
  const double number = value.toDouble(&valid);
  if (!valid || !std::isfinite(number))
  {
    throw std::invalid_argument("--" + text(option) + ": '" + text(value) + "' is no number");
  }
  return number;
}

// Qt knows more kinds, but some of them have no colours and some a size of their own.
std::string toImageName(const QString& value)
{
  static const QStringList suffixes{"bmp", "jpeg", "jpg", "png", "tif", "tiff"};
  if (!suffixes.contains(QFileInfo(value).suffix(), Qt::CaseInsensitive))
  {
    throw std::invalid_argument("can't write '" + Tools::Qt::fileName(value) +
                                "': its suffix must be .bmp, .jpg, .png or .tif");
  }
  return Tools::Qt::fileName(value);
}

void describe(QCommandLineParser& parser)
{
  parser.setApplicationDescription(
      "Draws a tree file as the viewer shows it and writes the picture, for scripts.");
  parser.addPositionalArgument("TREE", "The tree: a file in Newick, .nwk or .tre.");
  parser.addPositionalArgument(
      "IMAGE", "The picture to write; its suffix, .bmp, .jpg, .png or .tif, says of which kind.");
  parser.addOptions(
      {{{"h", "help"}, "Shows this help."},
       {"size",
        "Width and height of the picture in pixels, each from 1 to 8192; 1000x600 if not given.",
        "WxH", "1000x600"},
       {"zoom",
        "Factor by which the tree is stretched in height, from 1, where all of it is seen, to as "
        "much as the viewer allows; beyond it the nearest is taken; 1 if not given.",
        "Z", "1"},
       {"pan",
        "How far the tree is moved up, in heights of the whole tree; beyond its ends the picture "
        "is "
        "empty; 0 if not given.",
        "Y", "0"},
       {"all", "Shows every line, never an outline of a clade; off if not given."}});
}

Request toRequest(const QCommandLineParser& parser)
{
  const QStringList names = parser.positionalArguments();
  if (names.size() != 2)
  {
    throw std::invalid_argument(std::string("A TREE and an IMAGE are needed.") + seeHelp);
  }
  return {Tools::Qt::fileName(names[0]),
          toImageName(names[1]),
          {toSize(parser.value("size")), toNumber(parser, "zoom"), toNumber(parser, "pan"),
           parser.isSet("all")}};
}

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
    hint += hint.empty() ? orvex::tools::hintForFile(Tools::Qt::fileName(argument)) : "";
  }
  return hint;
}

void run(int argc, char** argv)
{
  QCommandLineParser parser;
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  describe(parser);
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
  const Request request = toRequest(parser);
  // Before the tree is read, which can take long.
  const QGuiApplication application(one, argv);
  const orvex::terminal::TerminalProgress progress;
  const boost::shared_ptr<orvex::Tree> tree = readTree(request.tree);
  write(orvex::snapshot::drawPicture(tree, request.look), request.image);
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
