#pragma once

#include "render/gl/scene/Group.h"

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

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

/// Makes a scene of a tree and its layout: a group of the labels of all leaves, and of the tree's
/// lines with a RenderNode for each node that the root reaches. Recurses once for each level.
class SceneBuilder
{
public:
  explicit SceneBuilder(boost::shared_ptr<Tree> tree);

  /// Builds the scene; without a tree or layout does nothing. Needs no context. If nothing else
  /// holds the layout, its records are released one by one, to make room for the scene.
  /// \throws std::runtime_error  if the font library can't start
  void buildScene(boost::intrusive_ptr<LayoutInfo2D> layout);

  /// Null until a scene was built.
  boost::intrusive_ptr<Group> root() const { return _root; }
  /// The width of the widest extent of all labels, in pixels.
  unsigned int maximumTextLength() const { return _maximumTextLength; }

private:
  boost::shared_ptr<Tree> _tree;
  boost::intrusive_ptr<Group> _root;
  unsigned int _maximumTextLength = 0;
};

} // namespace orvex::render::gl
