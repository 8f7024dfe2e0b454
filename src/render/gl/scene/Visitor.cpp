#include "render/gl/scene/Visitor.h"

#include "render/gl/scene/RenderNode.h"

namespace orvex::render::gl
{

void Visitor::visit(Group& group)
{
  group.traverse(*this);
}

void Visitor::visit(Node&) {}

void Visitor::visit(RenderNode& node)
{
  node.traverse(*this);
}

void Visitor::visit(RenderTaxonLabels&) {}

} // namespace orvex::render::gl
