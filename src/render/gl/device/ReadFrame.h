#pragma once

namespace orvex::render::gl
{

/// Reads what the current context's window holds, as the screen shows it: each pixel is the mean of
/// its samples. glewInit must have been called for the context.
/// \param width, height  of the window in pixels
/// \param rgba  room for four bytes a pixel; rows from the bottom upward. The fourth byte means
///              nothing
/// \throws std::runtime_error  if the driver gives no pixels
void readFrame(unsigned int width, unsigned int height, unsigned char* rgba);

} // namespace orvex::render::gl
