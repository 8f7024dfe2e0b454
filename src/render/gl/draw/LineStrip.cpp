#include "render/gl/draw/LineStrip.h"

#include "render/gl/draw/Batch.h"
#include "render/gl/draw/State.h"

static_assert(sizeof(LineStrip) == orvex::render::EdgeList::headroom);

boost::intrusive_ptr<LineStrip> LineStrip::make(orvex::render::EdgeList edges)
{
  return new (edges) LineStrip;
}

void LineStrip::render(orvex::render::gl::State& state) const
{
  orvex::render::gl::Batch& batch = state.batch();
  orvex::render::Point2D<double> previous{};
  for (orvex::render::EdgeList::Reader reader = edges(); reader.next();)
  {
    if (!reader.beginsEdge())
    {
      batch.line(previous, reader.vertex());
    }
    previous = reader.vertex();
  }
}
