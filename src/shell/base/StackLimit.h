#pragma once

namespace Kelmar::System
{

/// Raises the limit of this process's stack in place to 128 MiB, or to what the system permits if
/// that is less. Work on a tree recurses once for each of its levels, and the usual 8 MiB would
/// refuse deep trees that are in order. To be called by main before anything else.
///
/// The kernel keeps that much room free under the main thread's stack, so no restart is needed. A
/// higher limit, and one that can't be changed, stay as they are.
void raiseStackLimit();

} // namespace Kelmar::System
