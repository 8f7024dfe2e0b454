#pragma once

#include "foundation/counted/Referenced.h"

namespace orvex::render::gl
{

class Group;
class Node;
class RenderNode;
class RenderTaxonLabels;

/// Walks a scene. This one goes everywhere and does nothing; a visitor overrides what it cares
/// about, and calls traverse itself where the walk shall go on.
class Visitor : public Kelmar::Base::Referenced
{
public:
  virtual void visit(Group& group);
  virtual void visit(Node& node);
  virtual void visit(RenderNode& node);
  virtual void visit(RenderTaxonLabels& labels);
};

} // namespace orvex::render::gl
