#pragma once

#include "foundation/counted/Referenced.h"
#include "render/gl/device/Image.h"
#include "render/gl/device/ObjectName.h"

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex::render::gl
{

/// A texture that uploads its image when first applied; later changes of the image don't reach it.
/// Its OpenGL object is not deleted with it: the owner calls releaseGLObjects first.
class Texture2D : public Kelmar::Base::Referenced, private boost::noncopyable
{
public:
  /// Touches no OpenGL. Without an image, apply does nothing.
  explicit Texture2D(boost::intrusive_ptr<Image> image);

  /// Enables texturing and binds the texture. Needs a current context.
  void apply();
  /// Deletes the OpenGL object in the current context. The texture must not be applied again.
  void releaseGLObjects();

private:
  TextureName _texture;
  boost::intrusive_ptr<Image> _image;
};

} // namespace orvex::render::gl
