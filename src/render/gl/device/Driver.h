#pragma once

namespace orvex::render::gl
{

/// Whether the current context can be used. On some displays OpenGL is sent to the X server, which
/// takes all calls and does nothing.
bool answers();

/// Whether the driver of the current context can draw with several samples for a pixel. One that
/// can't may offer windows with samples all the same, and crash when the first frame is shown.
bool canMultisample();

/// Whether the pixels of the window that is drawn into have several samples.
bool hasSamples();

} // namespace orvex::render::gl
