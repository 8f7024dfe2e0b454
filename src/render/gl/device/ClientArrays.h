#pragma once

#include "render/gl/device/OpenGL.h"

#include <boost/core/noncopyable.hpp>

#include <initializer_list>
#include <vector>

namespace orvex::render::gl
{

/// Client arrays of the current context, such as GL_VERTEX_ARRAY: enabled in the given order, and
/// disabled in the same order at the end of the scope.
class ClientArrays : private boost::noncopyable
{
public:
  ClientArrays(std::initializer_list<GLenum> arrays);
  ~ClientArrays();

private:
  std::vector<GLenum> _arrays;
};

} // namespace orvex::render::gl
