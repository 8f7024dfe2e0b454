#pragma once

#include <boost/core/noncopyable.hpp>

namespace orvex::render::gl
{

/// A framebuffer object of OpenGL, for drawing off the screen. All operations need the context
/// current in which it was made, and the extension GL_EXT_framebuffer_object: without it, none may
/// be made.
class FrameBufferObject : private boost::noncopyable
{
public:
  FrameBufferObject();
  /// Also unbinds whichever framebuffer object is bound.
  ~FrameBufferObject();

  void bind();
  void unbind();

  static bool isSupported();

private:
  unsigned int _id = 0;
};

} // namespace orvex::render::gl
