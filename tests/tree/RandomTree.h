#pragma once

#include "tree/Tree.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <random>

namespace orvex::test
{

/// A tree grown from a seed. Node 0 is its root; a parent has a lower id than its children.
inline boost::shared_ptr<Tree> randomTree(unsigned int seed, int numberOfNodes)
{
  std::mt19937 random(seed);
  const auto tree = boost::make_shared<Tree>();
  for (int node = 0; node < numberOfNodes; ++node)
  {
    tree->createNode();
    // Half the nodes hang on one of the last three, which makes deep and bushy parts.
    const int reach = random() % 2 == 0 ? std::min(node, 3) : node;
    if (node > 0)
    {
      tree->setRelationship(node - 1 - static_cast<int>(random() % unsigned(reach)), node);
    }
  }
  tree->setRootNodeId(0);
  return tree;
}

} // namespace orvex::test
