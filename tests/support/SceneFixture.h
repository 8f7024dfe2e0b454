#pragma once

#include "generate/TreeGenerator.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/RenderNode.h"
#include "render/gl/scene/RenderTaxonLabels.h"
#include "render/gl/scene/SceneBuilder.h"
#include "render/layout/LayoutCladogram.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"

inline std::string randomNewick(unsigned int leaves, unsigned int seed)
{
  return orvex::generate::TreeGenerator(seed).newick(orvex::generate::TreeShape::Random, leaves);
}

/// The scene of a tree.
struct Scene
{
  explicit Scene(const boost::shared_ptr<orvex::Tree>& tree) : builder(tree)
  {
    const boost::intrusive_ptr<orvex::render::TreeLayout2D> layout(
        new orvex::render::LayoutCladogram);
    builder.buildScene(layout->layout(tree));
  }
  explicit Scene(const std::string& newick) : Scene(orvex::NewickReader().parseContents(newick)) {}

  orvex::render::gl::RenderNode& lines() const
  {
    return dynamic_cast<orvex::render::gl::RenderNode&>(*builder.root()->children().at(1));
  }

  orvex::render::gl::SceneBuilder builder;
};
