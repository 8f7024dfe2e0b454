#include "render/gl/scene/RenderNode.h"

#include "render/LayoutInfo2D.h"
#include "render/gl/draw/LineStrip.h"
#include "render/gl/draw/Triangle.h"
#include "render/gl/scene/Visitor.h"
#include "tree/Tree.h"

namespace orvex::render::gl
{

RenderNode::RenderNode(int node, const boost::shared_ptr<Tree>& tree,
                       const boost::intrusive_ptr<LayoutInfo2D>& layout,
                       const boost::intrusive_ptr<Drawable>& noLines)
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
  if (info.edges.empty() && _boundingBox.valid() && noLines)
  {
    _highLod = noLines;
    return;
  }
  _lowLod = new Triangle(info.position, _boundingBox);
  _highLod = new LineStrip(info.edges);
}

const boost::intrusive_ptr<Drawable>& RenderNode::lowLod() const
{
  if (!_lowLod && _boundingBox.valid())
  {
    _lowLod = new Triangle(_boundingBox.minimum, _boundingBox);
  }
  return _lowLod;
}

void RenderNode::accept(Visitor& visitor)
{
  visitor.visit(*this);
}

} // namespace orvex::render::gl
