#pragma once

#include "render/gl/scene/SceneBuilder.h"

#include <boost/shared_ptr.hpp>

namespace orvex::render::gl
{
class RenderTaxonLabels;
}

namespace orvex::paper
{

/// A tree laid out, and its scene, as the viewer makes them. Needs no OpenGL context.
class TreeScene
{
public:
  /// \throws std::runtime_error  if the font library can't start
  explicit TreeScene(const boost::shared_ptr<Tree>& tree);

  render::gl::Group& root() const { return *_builder.root(); }
  /// One for each leaf that the root reaches.
  render::gl::RenderTaxonLabels& labels() const;
  unsigned int numberOfLabels() const;
  /// In pixels of the viewer.
  unsigned int widestLabel() const { return _builder.maximumTextLength(); }
  const Tree& tree() const { return *_tree; }

private:
  boost::shared_ptr<Tree> _tree;
  render::gl::SceneBuilder _builder;
};

} // namespace orvex::paper
