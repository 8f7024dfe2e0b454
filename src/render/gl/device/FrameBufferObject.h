#pragma once

#include "render/gl/device/ObjectName.h"

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
  /// Binds this object and gives it a new texture of a size, at least, to draw into.
  /// \param texture  has no object yet; must live as long as this object is drawn into
  /// \param format  in which the texture is kept: GL_RGBA8 or GL_RGB8
  void attachTexture(TextureName& texture, unsigned int width, unsigned int height,
                     unsigned int format);
  /// Whether the driver can draw into what is attached. The object must be bound.
  bool isComplete() const;

  static bool isSupported();

private:
  FrameBufferName _id;
};

} // namespace orvex::render::gl
