#include "render/gl/draw/LineStrip.h"

#include "render/gl/draw/Batch.h"
#include "render/gl/draw/State.h"

LineStrip::LineStrip(const std::vector<boost::intrusive_ptr<orvex::render::Edge2D>>& edges)
    : _lines(edges)
{
}

void LineStrip::render(orvex::render::gl::State& state) const
{
  orvex::render::gl::Batch& batch = state.batch();
  orvex::render::Point2D<double> previous{};
  for (orvex::render::gl::PackedLines::Reader reader(_lines); reader.next();)
  {
    if (!reader.beginsLine())
    {
      batch.line(previous, reader.vertex());
    }
    previous = reader.vertex();
  }
}
