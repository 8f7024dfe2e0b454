#pragma once

#include "tree/Tree.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <random>
#include <vector>

namespace orvex::test
{

/// A tree grown from a seed, together with the parents that the tree itself does not know.
struct RandomTree
{
  boost::shared_ptr<Tree> tree = boost::make_shared<Tree>();
  /// By id; -1 for the root, which is node 0. A parent has a lower id than its children.
  std::vector<int> parents;

  RandomTree(unsigned int seed, int numberOfNodes)
  {
    std::mt19937 random(seed);
    for (int node = 0; node < numberOfNodes; ++node)
    {
      // Half the nodes hang on one of the last three, which makes deep and bushy parts.
      const int reach = random() % 2 == 0 ? std::min(node, 3) : node;
      const int parent = node == 0 ? -1 : node - 1 - static_cast<int>(random() % unsigned(reach));
      tree->createNode();
      parents.push_back(parent);
      if (parent >= 0)
      {
        tree->setRelationship(parent, node);
      }
    }
    tree->setRootNodeId(0);
  }

  /// From the root down to \p node, both included.
  std::vector<int> path(int node) const
  {
    std::vector<int> way;
    for (; node >= 0; node = parents[static_cast<std::size_t>(node)])
    {
      way.insert(way.begin(), node);
    }
    return way;
  }
};

} // namespace orvex::test
