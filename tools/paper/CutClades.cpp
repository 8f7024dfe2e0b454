#include "paper/CutClades.h"

#include "render/gl/scene/RenderNode.h"

namespace orvex::paper
{

void CutClades::visit(render::gl::RenderNode& node)
{
  const render::Box2D& clade = node.boundingBox();
  if (!(clade.minimum.y < _row && _row < clade.maximum.y))
  {
    return;
  }
  render::Box2D line;
  for (auto edges = static_cast<const LineStrip&>(*node.highLod()).edges(); edges.next();)
  {
    line.add(render::Point2D<double>{clade.minimum.x, edges.vertex().y});
  }
  if (line.minimum.y < _row && _row < line.maximum.y)
  {
    _found.push_back({node.nodeId(), clade.minimum.x, clade.minimum.y, clade.maximum.y});
  }
  node.traverse(*this);
}

} // namespace orvex::paper
