#pragma once

#include <boost/core/noncopyable.hpp>

namespace orvex::render::gl
{

enum class ObjectKind
{
  Texture,
  FrameBuffer
};

/// Owns the name of an OpenGL object, which is a number. The destructor does not delete the object,
/// since its context may no longer be current or exist: code that knows that it is current calls
/// remove(). An object that is not removed is deleted with its context.
template <ObjectKind kind>
class ObjectName : private boost::noncopyable
{
public:
  bool exists() const { return _name != 0; }
  unsigned int get() const { return _name; }

  /// Asks OpenGL for a new name. Needs a current context.
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
