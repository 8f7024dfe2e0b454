#pragma once

#include "foundation/counted/Referenced.h"

namespace orvex::render::gl
{

class Group;
class Node;
class RenderNode;
class RenderTaxonLabels;

/// Walks a scene. This class visits all nodes and does nothing with them. A derived class overrides
/// the functions that it needs, and calls traverse itself to go on to the children.
class Visitor : public Kelmar::Base::Referenced
{
public:
  virtual void visit(Group& group);
  virtual void visit(Node& node);
  virtual void visit(RenderNode& node);
  virtual void visit(RenderTaxonLabels& labels);
};

} // namespace orvex::render::gl
