#pragma once

#include "render/gl/draw/Drawable.h"
#include "render/gl/draw/LineStrip.h"
#include "render/gl/scene/Group.h"

#include <boost/shared_ptr.hpp>

namespace orvex
{
class Tree;
}

namespace orvex::render
{
class LayoutInfo2D;
}

namespace orvex::render::gl
{

/// The lines of one tree node: the elbows to its children, and a proxy for its whole clade. Its
/// children are those of the tree node. Its box is the clade's, in world units.
class RenderNode : public Group
{
public:
  /// Copies what it needs; keeps neither tree nor layout. Where one of them is null, the node has
  /// an empty box and no drawables.
  /// \param lines  the node's highLod(); null to make it of the layout
  RenderNode(int node, const boost::shared_ptr<Tree>& tree,
             const boost::intrusive_ptr<LayoutInfo2D>& layout,
             boost::intrusive_ptr<LineStrip> lines = nullptr);

  void accept(Visitor& visitor) override;

  int nodeId() const { return _nodeId; }
  const boost::intrusive_ptr<Drawable>& lowLod() const;
  const boost::intrusive_ptr<Drawable>& highLod() const { return _highLod; }
  /// Relative depth, by height above the leaves: 0.0 at the root, 1.0 at a leaf.
  double lodFraction() const { return _lodFraction; }
  /// Whether a frame can show the node as a proxy: the last tenth of depth, which are most nodes of
  /// a tree, never is.
  bool canBeProxy() const { return !(_lodFraction > 0.9); }

private:
  Point2D<double> _position() const;

  int _nodeId;
  // Made at once where a frame can show it, else when it is first asked for.
  mutable boost::intrusive_ptr<Drawable> _lowLod;
  boost::intrusive_ptr<Drawable> _highLod; // a LineStrip
  double _lodFraction = 1.0;
};

} // namespace orvex::render::gl
