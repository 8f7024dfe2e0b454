#pragma once

#include "foundation/progress/Stage.h"

/// The stages of opening a tree, in their order. Which part of the whole each one is was measured
/// by `cold-start shares`, with a tree of a million leaves from a file.
namespace orvex::OpeningStages
{

using Kelmar::Progress::Stage;

inline constexpr Stage reading{"Reading the file", 0.0, 0.11};
inline constexpr Stage layout{"Computing the layout", 0.11, 0.41};
inline constexpr Stage scene{"Building the scene", 0.41, 0.99};
inline constexpr Stage picture{"Drawing the first picture", 0.99, 1.0};

// What stands in place of the first one where a tree comes from the tree service.
inline constexpr Stage receiving{"Receiving the tree", 0.0, 0.05};
inline constexpr Stage readingAnswer{"Reading the answer", 0.05, 0.11};

} // namespace orvex::OpeningStages
