#include "paper/WholeSheet.h"

#include "foundation/progress/Work.h"
#include "paper/DrawingStages.h"
#include "paper/PassDrawing.h"
#include "paper/Strip.h"

namespace orvex::paper
{

void drawWhole(const Strip& strip, double lineWidth, Canvas& canvas)
{
  const render::DrawingPass pass = strip.pass(strip.area());
  const render::gl::RenderGraph graph = strip.cull(pass, lineWidth);
  Kelmar::Progress::Work work(DrawingStages::drawing, PassDrawing::units(graph));
  canvas.beginSheet(strip.width(), strip.height());
  const Placement placement{{0.0, strip.height()}, strip.scale()};
  PassDrawing(canvas, pass, placement, lineWidth).draw(graph, work);
}

} // namespace orvex::paper
