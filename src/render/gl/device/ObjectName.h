#pragma once

#include <boost/core/noncopyable.hpp>

namespace orvex::render::gl
{

enum class ObjectKind
{
  Texture,
  FrameBuffer
};

/// Owns the number by which OpenGL knows one of its objects. The destructor does not delete that
/// object, since its context may not be current then, or gone: who knows that it is current calls
/// remove(). What is not removed ends with its context.
template <ObjectKind kind>
class ObjectName : private boost::noncopyable
{
public:
  bool exists() const { return _name != 0; }
  unsigned int get() const { return _name; }

  /// Has a name made for an object. Needs a current context.
  /// \pre there is none yet
  void make();
  /// Deletes the object, if there is one. Needs the context current in which it was made.
  void remove();

private:
  unsigned int _name = 0; // none; OpenGL never gives this one
};

template <>
void ObjectName<ObjectKind::Texture>::make();
template <>
void ObjectName<ObjectKind::Texture>::remove();
template <>
void ObjectName<ObjectKind::FrameBuffer>::make();
template <>
void ObjectName<ObjectKind::FrameBuffer>::remove();

using TextureName = ObjectName<ObjectKind::Texture>;
using FrameBufferName = ObjectName<ObjectKind::FrameBuffer>;

} // namespace orvex::render::gl
