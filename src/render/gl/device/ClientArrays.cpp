#include "render/gl/device/ClientArrays.h"

namespace orvex::render::gl
{

ClientArrays::ClientArrays(std::initializer_list<GLenum> arrays) : _arrays(arrays)
{
  for (const GLenum array : _arrays)
  {
    glEnableClientState(array);
  }
}

ClientArrays::~ClientArrays()
{
  for (const GLenum array : _arrays)
  {
    glDisableClientState(array);
  }
}

} // namespace orvex::render::gl
