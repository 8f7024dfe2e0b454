#include "tree/model/Tree.h"

#include <boost/range/iterator_range.hpp>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace orvex
{
namespace Detail
{
namespace
{

void findLeafNodes(const Tree& tree, int id, std::vector<int>& leaves)
{
  if (tree.isLeaf(id))
  {
    leaves.push_back(id);
    return;
  }
  for (const int child : boost::make_iterator_range(tree.getChildren(id)))
  {
    findLeafNodes(tree, child, leaves);
  }
}

int getNumAllChildren(const Tree& tree, int id)
{
  int count = 1;
  for (const int child : boost::make_iterator_range(tree.getChildren(id)))
  {
    count += getNumAllChildren(tree, child);
  }
  return count;
}

unsigned int findMaximumDepthToLeaf(const Tree& tree, int id, unsigned int depth)
{
  unsigned int deepest = depth;
  for (const int child : boost::make_iterator_range(tree.getChildren(id)))
  {
    deepest = std::max(deepest, findMaximumDepthToLeaf(tree, child, depth + 1));
  }
  return deepest;
}

// Ids are numbers of type int, and so is the number of nodes.
void requireIds(std::size_t numberOfNodes)
{
  constexpr std::size_t most = std::numeric_limits<int>::max();
  if (numberOfNodes > most)
  {
    throw std::length_error("A tree can have at most " + std::to_string(most) + " nodes.");
  }
}

} // namespace
} // namespace Detail

void Tree::reserve(std::size_t numberOfNodes)
{
  Detail::requireIds(numberOfNodes);
  _nodes.reserve(numberOfNodes);
}

int Tree::createNode()
{
  Detail::requireIds(_nodes.size() + 1);
  _nodes.emplace_back();
  return static_cast<int>(_nodes.size() - 1);
}

void Tree::setRelationship(int parent, int child)
{
  Node& node = _node(parent);
  const unsigned int inRecord = static_cast<unsigned int>(node.children.size());
  if (node.numberOfChildren < inRecord)
  {
    node.children[node.numberOfChildren] = child;
  }
  else if (node.numberOfChildren == inRecord)
  {
    _longLists.push_back({node.children[0], node.children[1], child});
    node.children[0] = static_cast<int>(_longLists.size() - 1);
  }
  else
  {
    _longLists[static_cast<std::size_t>(node.children[0])].push_back(child);
  }
  ++node.numberOfChildren;
}

void Tree::setName(int id, std::string name)
{
  Node& node = _node(id);
  if (node.name >= 0)
  {
    _names[static_cast<std::size_t>(node.name)] = std::move(name);
  }
  else if (!name.empty())
  {
    _names.push_back(std::move(name));
    node.name = static_cast<int>(_names.size() - 1);
  }
}

unsigned int Tree::getNumberOfNodes() const
{
  return static_cast<unsigned int>(_nodes.size());
}

unsigned int Tree::getNumberOfLeafNodes() const
{
  return static_cast<unsigned int>(std::count_if(
      _nodes.begin(), _nodes.end(), [](const Node& node) { return node.numberOfChildren == 0; }));
}

void Tree::getLeafNodes(int id, std::vector<int>& leaves)
{
  Detail::findLeafNodes(*this, id, leaves);
}

int Tree::getNumAllChildren(int id) const
{
  return Detail::getNumAllChildren(*this, id);
}

int Tree::findMaximumDepthToLeaf(int id) const
{
  return static_cast<int>(Detail::findMaximumDepthToLeaf(*this, id, 0));
}

} // namespace orvex
