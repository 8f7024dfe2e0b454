#include "render/gl/draw/State.h"

namespace orvex::render::gl
{

Kelmar::Math::Matrix44d State::getLocalToScreenMatrix() const
{
  return _pass.computeLocalToScreenMatrix();
}

Batch& State::batch()
{
  if (!_batch)
  {
    _batch = new Batch;
  }
  return *_batch;
}

} // namespace orvex::render::gl
