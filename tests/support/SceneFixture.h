#pragma once

#include "generate/TreeGenerator.h"
#include "render/LayoutCladogram.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/RenderNode.h"
#include "render/gl/scene/RenderTaxonLabels.h"
#include "render/gl/scene/SceneBuilder.h"
#include "tree/NewickReader.h"
#include "tree/Tree.h"

namespace orvex::test
{

inline std::string randomNewick(unsigned int leaves, unsigned int seed)
{
  return tools::TreeGenerator(seed).newick(tools::TreeShape::Random, leaves);
}

/// The scene of a tree.
struct Scene
{
  explicit Scene(const boost::shared_ptr<Tree>& tree) : builder(tree)
  {
    const boost::intrusive_ptr<render::TreeLayout2D> layout(new render::LayoutCladogram);
    builder.buildScene(layout->layout(tree));
  }
  explicit Scene(const std::string& newick) : Scene(NewickReader().parseContents(newick)) {}

  render::gl::RenderNode& lines() const
  {
    return dynamic_cast<render::gl::RenderNode&>(*builder.root()->children().at(1));
  }

  render::gl::SceneBuilder builder;
};

} // namespace orvex::test
