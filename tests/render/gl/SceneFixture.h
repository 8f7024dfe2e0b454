#pragma once

#include "render/LayoutCladogram.h"
#include "render/gl/RenderNode.h"
#include "render/gl/RenderTaxonLabels.h"
#include "render/gl/SceneBuilder.h"
#include "render/gl/State.h"
#include "tree/NewickReader.h"
#include "tree/Tree.h"

#include <boost/make_shared.hpp>

#include <random>
#include <string>
#include <vector>

namespace orvex::test
{

/// A tree, its layout and its scene.
struct Scene
{
  explicit Scene(const boost::shared_ptr<Tree>& tree)
      : layout(
            boost::intrusive_ptr<render::TreeLayout2D>(new render::LayoutCladogram)->layout(tree)),
        builder(tree)
  {
    builder.buildScene(layout);
  }
  explicit Scene(const std::string& newick) : Scene(NewickReader().parseContents(newick)) {}

  render::gl::RenderNode& lines() const
  {
    return dynamic_cast<render::gl::RenderNode&>(*builder.root()->children().at(1));
  }

  boost::intrusive_ptr<render::LayoutInfo2D> layout;
  render::gl::SceneBuilder builder;
};

/// A random binary tree with leaves a0, a1, ... from the top down: neighbours join until one is
/// left.
inline std::string randomNewick(int leaves, unsigned int seed)
{
  std::mt19937 random(seed);
  std::vector<std::string> clades;
  for (int i = 0; i < leaves; ++i)
  {
    clades.push_back("a" + std::to_string(i));
  }
  while (clades.size() > 1)
  {
    const auto left = clades.begin() + static_cast<int>(random() % (clades.size() - 1));
    *left = "(" + *left + "," + left[1] + ")";
    clades.erase(left + 1);
  }
  return clades.front() + ";";
}

} // namespace orvex::test
