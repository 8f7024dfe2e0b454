#pragma once

#include <string>

namespace orvex::paper
{

/// The size of a sheet of paper, in points.
struct PageFormat
{
  double width;
  double height;

  /// \param text  a name that Qt knows, such as A4 or Letter, or width and height such as 300x400mm
  /// \throws std::invalid_argument  for any other text
  static PageFormat parse(const std::string& text);
  PageFormat landscape() const { return {height, width}; }
};

} // namespace orvex::paper
