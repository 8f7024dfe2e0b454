#pragma once

namespace Kelmar::Progress
{

/// A stage of a work.
struct Stage
{
  /// What it does, in words for a user.
  const char* text;
  /// Which part of the whole work it is, from 0 to 1.
  double begin, end;

  /// How much of the whole work is done when \p share of the stage is done.
  double shareOfWhole(double share) const { return begin + share * (end - begin); }
};

} // namespace Kelmar::Progress
