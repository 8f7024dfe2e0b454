#pragma once

namespace orvex::render::gl
{

/// Whether the driver of the current context can draw with several samples for a pixel. One that
/// can't may offer windows with samples all the same, and crash when the first frame is shown.
bool canMultisample();

} // namespace orvex::render::gl
