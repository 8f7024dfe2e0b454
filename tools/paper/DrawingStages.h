#pragma once

#include "foundation/progress/Stage.h"

/// The stage after those of opening a tree, as a share of the drawing alone.
namespace orvex::paper::DrawingStages
{

inline constexpr Kelmar::Progress::Stage drawing{"Drawing the document", 0.0, 1.0};

} // namespace orvex::paper::DrawingStages
