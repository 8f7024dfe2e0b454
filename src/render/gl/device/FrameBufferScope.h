#pragma once

#include <boost/core/noncopyable.hpp>

namespace orvex::render::gl
{

/// At the end of the scope, binds the framebuffer object again that was bound at its start; the
/// window, if none was. Both ends need the same context current.
/// \pre FrameBufferObject::isSupported()
class FrameBufferScope : private boost::noncopyable
{
public:
  FrameBufferScope();
  ~FrameBufferScope();

private:
  unsigned int _before = 0;
};

} // namespace orvex::render::gl
