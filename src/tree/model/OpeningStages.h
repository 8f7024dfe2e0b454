#pragma once

#include "foundation/progress/Stage.h"

/// The stages of opening a tree, in their order. Which part of the whole each one is was measured
/// by `cold-start shares`, with a tree of a million leaves from a file.
namespace orvex::OpeningStages
{

using Kelmar::Progress::Stage;

inline constexpr Stage reading{"Reading the file", 0.0, 0.13};
inline constexpr Stage layout{"Computing the layout", 0.13, 0.41};
inline constexpr Stage scene{"Building the scene", 0.41, 0.98};
inline constexpr Stage picture{"Drawing the first picture", 0.98, 1.0};

// What stands in place of the first one where a tree comes from the tree service.
inline constexpr Stage receiving{"Receiving the tree", 0.0, 0.06};
inline constexpr Stage readingAnswer{"Reading the answer", 0.06, 0.13};

} // namespace orvex::OpeningStages
