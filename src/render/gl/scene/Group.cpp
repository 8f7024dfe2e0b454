#include "render/gl/scene/Group.h"

#include "render/gl/scene/Visitor.h"

#include <utility>

namespace orvex::render::gl
{

void Group::accept(Visitor& visitor)
{
  visitor.visit(*this);
}

void Group::addChild(boost::intrusive_ptr<Node> child)
{
  if (child)
  {
    _children.push_back(std::move(child));
  }
}

void Group::traverse(Visitor& visitor)
{
  for (const boost::intrusive_ptr<Node>& child : _children)
  {
    child->accept(visitor);
  }
}

} // namespace orvex::render::gl
