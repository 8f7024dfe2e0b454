#pragma once

#include "render/gl/device/FrameBufferObject.h"
#include "render/gl/device/ObjectName.h"

#include <boost/core/noncopyable.hpp>

namespace orvex::render::gl
{

/// A copy of the window's frame buffer in which each pixel is the mean of its samples, as the
/// screen shows it. Pixels are read from the copy until the end of the scope, then from the window
/// again. Both ends of the scope need the window's context current.
class ResolvedFrame : private boost::noncopyable
{
public:
  /// \param width, height  of the window in pixels
  /// \pre isSupported()
  ResolvedFrame(unsigned int width, unsigned int height);
  ~ResolvedFrame();

  /// Whether the current context can make such a copy. glewInit must have been called for it.
  static bool isSupported();

private:
  TextureName _texture;
  FrameBufferObject _frameBuffer;
};

} // namespace orvex::render::gl
