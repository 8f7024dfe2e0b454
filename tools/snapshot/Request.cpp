#include "snapshot/Request.h"

#include "gui/qt/Strings.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRegularExpression>

#include <cmath>
#include <stdexcept>

namespace orvex::snapshot
{
namespace Detail
{
namespace
{

using Tools::Qt::text;

// With more pixels the buffers of a frame, which have four samples for each, are too large for
// usual memories.
constexpr int largestSide = 8192;

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
Request::Kind toKind(const QString& name)
{
  static const QStringList pixels{"bmp", "jpeg", "jpg", "png", "tif", "tiff"};
  const QString suffix = QFileInfo(name).suffix().toLower();
  if (suffix == "pdf" || suffix == "svg")
  {
    return suffix == "pdf" ? Request::Kind::Pdf : Request::Kind::Svg;
  }
  if (!pixels.contains(suffix))
  {
    throw std::invalid_argument("can't write '" + Tools::Qt::fileName(name) +
                                "': its suffix must be .bmp, .jpg, .pdf, .png, .svg or .tif");
  }
  return Request::Kind::Pixels;
}

double toLength(const QCommandLineParser& parser, const QString& option, double least, double most)
{
  const double length = toNumber(parser, option);
  if (!(length >= least && length <= most))
  {
    throw std::invalid_argument("--" + text(option) + ": '" + text(parser.value(option)) +
                                "' is no length from " + text(QString::number(least)) + " to " +
                                text(QString::number(most)) + " points");
  }
  return length;
}

void requireTogether(const QCommandLineParser& parser, const QStringList& options, bool allowed,
                     const std::string& reason)
{
  for (const QString& option : options)
  {
    if (parser.isSet(option) && !allowed)
    {
      throw std::invalid_argument("--" + text(option) + " " + reason);
    }
  }
}

void requireSense(const QCommandLineParser& parser, Request::Kind kind)
{
  const bool whole = parser.isSet("whole");
  const bool isDocument = kind != Request::Kind::Pixels || whole;
  requireTogether(parser, {"line-width", "paper", "screen"}, isDocument,
                  "is for .pdf, .svg and --whole");
  requireTogether(parser, {"paper"}, !parser.isSet("screen"), "and --screen exclude each other");
  requireTogether(parser, {"leaf-height", "pages", "width"}, whole, "is for --whole");
  requireTogether(parser, {"all", "pan", "size", "zoom"}, !whole, "is not for --whole");
  requireTogether(parser, {"landscape"}, parser.isSet("pages"), "is for --pages");
  requireTogether(parser, {"pages"}, kind == Request::Kind::Pdf, "is for .pdf");
}

/// What options ask for that need not be given.
std::optional<double> length(const QCommandLineParser& parser, const QString& option, double least,
                             double most)
{
  return parser.isSet(option) ? std::optional(toLength(parser, option, least, most)) : std::nullopt;
}

std::optional<paper::PageFormat> page(const QCommandLineParser& parser)
{
  if (!parser.isSet("pages"))
  {
    return std::nullopt;
  }
  const auto format = paper::PageFormat::parse(text(parser.value("pages")));
  return parser.isSet("landscape") ? format.landscape() : format;
}

} // namespace
} // namespace Detail

void describe(QCommandLineParser& parser)
{
  parser.setApplicationDescription(
      "Draws a tree file as the viewer shows it and writes the picture, for scripts.");
  parser.addPositionalArgument("TREE", "The tree: a file in Newick, .nwk or .tre.");
  parser.addPositionalArgument(
      "IMAGE", "The picture to write; its suffix says of which kind: .bmp, .jpg, .png or .tif of "
               "pixels, .pdf or .svg of lines and texts, for print.");
  parser.addOptions(
      {{{"h", "help"}, "Shows this help."},
       {"size",
        "Width and height of the picture in pixels, or of a .pdf or .svg in points, each from 1 to "
        "8192; 1000x600 if not given.",
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
       {"all", "Shows every line, never an outline of a clade; off if not given."},
       {"whole",
        "Draws all of the tree, with a row and its name for each leaf, as high as it gets."},
       {"leaf-height",
        "How high a row of --whole is, in points, or pixels of a picture, from 0.1 to 1000; 8 if "
        "not given.",
        "POINTS", "8"},
       {"width",
        "How wide --whole is, in points, from 1 to 14400; if not given what suits the height, or "
        "the page.",
        "POINTS"},
       {"pages",
        "Splits --whole over the pages of a .pdf: A4, A3, A0, Letter or any other that has a name, "
        "or a size such as 300x400mm.",
        "PAGE"},
       {"landscape", "Turns the page, so that its height is its width."},
       {"paper", "Draws black on white; so are .pdf and .svg if not given."},
       {"screen", "Draws in the viewer's colours, white on black; so are pictures of pixels."},
       {"line-width",
        "How wide lines are in .pdf, .svg and --whole, in points from 0.01 to 100; if not given 1, "
        "or for --whole an 18th of the leaf height.",
        "POINTS"}});
}

Request toRequest(const QCommandLineParser& parser)
{
  const QStringList names = parser.positionalArguments();
  if (names.size() != 2)
  {
    throw std::invalid_argument("A TREE and an IMAGE are needed. See orvex-snapshot --help.");
  }
  Request request;
  request.tree = Tools::Qt::fileName(names[0]);
  request.image = Tools::Qt::fileName(names[1]);
  request.kind = Detail::toKind(names[1]);
  request.look = {Detail::toSize(parser.value("size")), Detail::toNumber(parser, "zoom"),
                  Detail::toNumber(parser, "pan"), parser.isSet("all")};
  Detail::requireSense(parser, request.kind);
  request.whole = parser.isSet("whole");
  request.leafHeight = Detail::toLength(parser, "leaf-height", 0.1, 1000.0);
  request.width = Detail::length(parser, "width", 1.0, 14400.0);
  request.page = Detail::page(parser);
  request.paperColours =
      parser.isSet("paper") || (request.kind != Request::Kind::Pixels && !parser.isSet("screen"));
  request.lineWidth = Detail::length(parser, "line-width", 0.01, 100.0);
  return request;
}

} // namespace orvex::snapshot
