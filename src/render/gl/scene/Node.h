#pragma once

#include "foundation/counted/Referenced.h"
#include "render/layout/Box2D.h"

namespace orvex::render::gl
{

class Visitor;

/// A node of the scene. It holds drawables but does not draw them.
class Node : public Kelmar::Base::Referenced
{
public:
  /// Calls the visit of this node's own class.
  virtual void accept(Visitor& visitor);

  /// The unit is the subclass's: world units in a RenderNode, label pixels in RenderTaxonLabels.
  const Box2D& boundingBox() const { return _boundingBox; }

protected:
  Box2D _boundingBox;
};

} // namespace orvex::render::gl
