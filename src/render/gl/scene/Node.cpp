#include "render/gl/scene/Node.h"

#include "render/gl/scene/Visitor.h"

namespace orvex::render::gl
{

void Node::accept(Visitor& visitor)
{
  visitor.visit(*this);
}

} // namespace orvex::render::gl
