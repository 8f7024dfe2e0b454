#pragma once

namespace Kelmar::Progress
{

/// The stages of opening a tree in their order, and of writing a generated one.
enum class Stage
{
  Reading,
  Layout,
  Scene,
  Picture,
  Writing
};

/// What a stage does, in words for a user.
const char* textOf(Stage stage);

/// How much of the whole work is done when \p share of a stage is done, both from 0 to 1. The whole
/// is the opening of a tree, for Stage::Writing the stage itself. How long the stages of an opening
/// take was measured, with a tree of a million leaves from a file.
double shareOfWhole(Stage stage, double share);

} // namespace Kelmar::Progress
