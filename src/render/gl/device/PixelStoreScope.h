#pragma once

#include "render/gl/device/OpenGL.h"

#include <boost/core/noncopyable.hpp>

namespace orvex::render::gl
{

/// Saves the pixel store modes of the current context and restores them at the end of the scope.
class PixelStoreScope : private boost::noncopyable
{
public:
  PixelStoreScope() { glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT); }
  ~PixelStoreScope() { glPopClientAttrib(); }
};

} // namespace orvex::render::gl
