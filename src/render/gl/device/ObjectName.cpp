#include "render/gl/device/ObjectName.h"

#include "render/gl/device/OpenGL.h"

namespace orvex::render::gl
{

template <>
void ObjectName<ObjectKind::Texture>::make()
{
  glGenTextures(1, &_name);
}

template <>
void ObjectName<ObjectKind::Texture>::remove()
{
  if (exists())
  {
    glDeleteTextures(1, &_name);
    _name = 0;
  }
}

template <>
void ObjectName<ObjectKind::FrameBuffer>::make()
{
  glGenFramebuffersEXT(1, &_name);
}

template <>
void ObjectName<ObjectKind::FrameBuffer>::remove()
{
  if (exists())
  {
    glDeleteFramebuffersEXT(1, &_name);
    _name = 0;
  }
}

} // namespace orvex::render::gl
