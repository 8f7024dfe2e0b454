#include "render/gl/Node.h"

#include "render/gl/Visitor.h"

namespace orvex::render::gl
{

void Node::accept(Visitor& visitor)
{
  visitor.visit(*this);
}

} // namespace orvex::render::gl
