#pragma once

#include "foundation/counted/Referenced.h"

namespace orvex::render
{

/// The switches of the display.
class DisplaySettings : public Kelmar::Base::Referenced
{
public:
  /// The user's switch: never show a proxy in place of a clade.
  bool alwaysUseHighLod() const { return _alwaysUseHighLod; }
  void alwaysUseHighLod(bool value) { _alwaysUseHighLod = value; }

  /// Whether labels are drawn; set for each drawing pass.
  bool drawText() const { return _drawText; }
  void drawText(bool value) { _drawText = value; }

private:
  bool _alwaysUseHighLod = false;
  bool _drawText = true;
};

} // namespace orvex::render
