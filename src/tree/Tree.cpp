#include "tree/Tree.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

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
  for (auto [child, end] = tree.getChildren(id); child != end; ++child)
  {
    findLeafNodes(tree, static_cast<int>(*child), leaves);
  }
}

int getNumAllChildren(const Tree& tree, int id)
{
  int count = 1;
  for (auto [child, end] = tree.getChildren(id); child != end; ++child)
  {
    count += getNumAllChildren(tree, static_cast<int>(*child));
  }
  return count;
}

unsigned int findMaximumDepthToLeaf(const Tree& tree, int id, unsigned int depth)
{
  unsigned int deepest = depth;
  for (auto [child, end] = tree.getChildren(id); child != end; ++child)
  {
    deepest = std::max(deepest, findMaximumDepthToLeaf(tree, static_cast<int>(*child), depth + 1));
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
  _graph.m_vertices.reserve(numberOfNodes);
}

int Tree::createNode()
{
  Detail::requireIds(boost::num_vertices(_graph) + 1);
  const Vertex vertex = boost::add_vertex(_graph);
  _graph[vertex].distanceToParent = 0.0;
  return static_cast<int>(vertex);
}

void Tree::setRelationship(int parent, int child)
{
  boost::add_edge(_vertex(parent), _vertex(child), _graph);
}

void Tree::setName(int id, const std::string& name)
{
  _graph[_vertex(id)].name = name;
}

void Tree::setDistanceToParent(int id, double distance)
{
  _graph[_vertex(id)].distanceToParent = distance;
}

unsigned int Tree::getNumberOfNodes() const
{
  return static_cast<unsigned int>(boost::num_vertices(_graph));
}

unsigned int Tree::getNumberOfLeafNodes() const
{
  const auto [first, last] = boost::vertices(_graph);
  return static_cast<unsigned int>(std::count_if(
      first, last, [this](Vertex vertex) { return boost::out_degree(vertex, _graph) == 0; }));
}

int Tree::getChild(int id, unsigned int index)
{
  return static_cast<int>(*(boost::adjacent_vertices(_vertex(id), _graph).first + index));
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
