#include "render/gl/scene/RenderNode.h"

#include "render/gl/draw/Triangle.h"
#include "render/gl/scene/Visitor.h"
#include "render/layout/LayoutInfo2D.h"
#include "tree/model/Tree.h"

#include <utility>

namespace orvex::render::gl
{

static_assert(sizeof(RenderNode) == 96);

RenderNode::RenderNode(int node, const boost::shared_ptr<Tree>& tree,
                       const boost::intrusive_ptr<LayoutInfo2D>& layout,
                       boost::intrusive_ptr<LineStrip> lines)
    : _nodeId(node)
{
  if (!tree || !layout)
  {
    return;
  }
  const NodeLayoutInfo& info = layout->layoutInfoForNode(node);
  const NodeLayoutInfo& root = layout->layoutInfoForNode(tree->getRootNodeId());
  // A root without children is a leaf and keeps the value of a leaf, 1.0.
  if (root.depthToLeaf != 0)
  {
    _lodFraction = 1.0 - info.depthToLeaf / static_cast<double>(root.depthToLeaf);
  }
  _boundingBox = info.boundingBox;
  _highLod = lines ? std::move(lines) : LineStrip::make(info.edges);
  if (canBeProxy())
  {
    lowLod();
  }
}

const boost::intrusive_ptr<Drawable>& RenderNode::lowLod() const
{
  if (!_lowLod && _highLod)
  {
    _lowLod = new Triangle(_position(), _boundingBox);
  }
  return _lowLod;
}

// A node lies where its edges begin. Without edges it is a leaf, whose box is a point.
Point2D<double> RenderNode::_position() const
{
  EdgeList::Reader reader = static_cast<const LineStrip&>(*_highLod).edges();
  return reader.next() ? reader.vertex() : _boundingBox.minimum;
}

void RenderNode::accept(Visitor& visitor)
{
  visitor.visit(*this);
}

} // namespace orvex::render::gl
