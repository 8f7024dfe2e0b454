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

namespace orvex::test
{

/// A tree from Newick text, its layout and its scene.
struct Scene
{
  explicit Scene(const std::string& newick)
      : tree(NewickReader().parseContents(newick)), layout(layOut(tree)), builder(tree)
  {
    builder.buildScene(layout);
  }

  render::gl::RenderTaxonLabels& labels() const
  {
    return dynamic_cast<render::gl::RenderTaxonLabels&>(*builder.root()->children().at(0));
  }
  render::gl::RenderNode& lines() const
  {
    return dynamic_cast<render::gl::RenderNode&>(*builder.root()->children().at(1));
  }

  static boost::intrusive_ptr<render::LayoutInfo2D> layOut(const boost::shared_ptr<Tree>& tree)
  {
    return boost::intrusive_ptr<render::LayoutCladogram>(new render::LayoutCladogram)->layout(tree);
  }

  boost::shared_ptr<Tree> tree;
  boost::intrusive_ptr<render::LayoutInfo2D> layout;
  render::gl::SceneBuilder builder;
};

/// A random binary tree with leaves a0, a1, ... from the top down.
inline std::string randomNewick(int leaves, std::mt19937& random, int& nextLeaf)
{
  if (leaves == 1)
  {
    return "a" + std::to_string(nextLeaf++);
  }
  const int left = 1 + static_cast<int>(random() % static_cast<unsigned int>(leaves - 1));
  const std::string first = randomNewick(left, random, nextLeaf);
  return "(" + first + "," + randomNewick(leaves - left, random, nextLeaf) + ")";
}

inline std::string randomNewick(int leaves, unsigned int seed)
{
  std::mt19937 random(seed);
  int nextLeaf = 0;
  return randomNewick(leaves, random, nextLeaf) + ";";
}

} // namespace orvex::test
