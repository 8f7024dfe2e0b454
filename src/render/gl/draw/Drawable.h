#pragma once

#include "foundation/counted/Referenced.h"

namespace orvex::render::gl
{

class State;

/// A part of the picture that draws itself, at once or with the batch of the pass. RenderGraph sets
/// the OpenGL state and calls render; the context is current.
class Drawable : public Kelmar::Base::Referenced
{
public:
  virtual void render(State& state) const = 0;
};

} // namespace orvex::render::gl
