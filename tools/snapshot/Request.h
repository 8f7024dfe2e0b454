#pragma once

#include "paper/PageFormat.h"
#include "snapshot/Look.h"

#include <QStringList>

#include <optional>
#include <string>

class QCommandLineParser;

namespace orvex::snapshot
{

/// What the program is asked for.
struct Request
{
  enum class Kind
  {
    Pixels,
    Pdf,
    Svg
  };

  std::string tree;
  std::string image;
  Kind kind = Kind::Pixels;
  Look look;
  /// Every leaf has a row and its name, in place of a look.
  bool whole = false;
  /// Of the whole tree, in points.
  double leafHeight = 8.0;
  std::optional<double> width;
  /// What the whole tree is split over.
  std::optional<paper::PageFormat> page;
  /// Black on white.
  bool paperColours = false;
  /// In points.
  std::optional<double> lineWidth;
};

/// Tells the parser of all options, with their explanations.
void describe(QCommandLineParser& parser);

/// \throws std::invalid_argument  for what can't be done
Request toRequest(const QCommandLineParser& parser);

} // namespace orvex::snapshot
