#pragma once

#include <boost/core/noncopyable.hpp>
#include <boost/graph/adjacency_list.hpp>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace orvex
{

/// A rooted phylogenetic tree, held by boost::shared_ptr. A reader fills it; from then on it is
/// only read.
///
/// Nodes are numbered densely from 0 in the order of their creation, and never removed. Children
/// keep the order in which they were added: the order of the source from left to right. No node
/// knows its parent. Ids and child indexes are not checked; they come from the tree itself.
class Tree : private boost::noncopyable
{
public:
  /// The record of a node.
  struct VertexProperty
  {
    std::string name;
    /// Length of the branch to the parent; 0.0 for none, and for a given 0.0.
    double distanceToParent = 0.0;
  };

private:
  using Graph = boost::adjacency_list<boost::vecS, boost::vecS, boost::directedS, VertexProperty,
                                      boost::no_property, boost::no_property, boost::listS>;

public:
  using ChildIterator = boost::graph_traits<Graph>::adjacency_iterator;

  Tree() = default;
  virtual ~Tree() = default;

  /// Allocates memory for so many nodes, so that creating them moves no other nodes.
  /// \throws std::length_error  if an id can't count so many
  void reserve(std::size_t numberOfNodes);
  /// \return the id of a new node without name, distance and children
  /// \throws std::length_error  if there is no further id
  int createNode();
  /// Makes \p child the last child of \p parent.
  /// \pre \p child has no parent yet
  void setRelationship(int parent, int child);

  void setName(int id, const std::string& name);
  const std::string& getName(int id) const { return _graph[_vertex(id)].name; }

  void setDistanceToParent(int id, double distance);
  double getDistanceToParent(int id) const { return _graph[_vertex(id)].distanceToParent; }
  bool hasDistanceToParent(int id) const { return getDistanceToParent(id) != 0.0; }

  /// -1 until a reader has set it.
  int getRootNodeId() const { return _root; }
  void setRootNodeId(int id) { _root = id; }

  /// All nodes, also those that the root does not reach: of a file with several trees, the nodes of
  /// the earlier trees.
  unsigned int getNumberOfNodes() const;
  /// All nodes without children, reached from the root or not.
  unsigned int getNumberOfLeafNodes() const;

  bool isLeaf(int id) const { return getNumChildren(id) == 0; }
  unsigned int getNumChildren(int id) const
  {
    return static_cast<unsigned int>(boost::out_degree(_vertex(id), _graph));
  }
  int getChild(int id, unsigned int index);
  /// The children in their order, to walk without a copy. An iterator gives the child's id.
  std::pair<ChildIterator, ChildIterator> getChildren(int id) const
  {
    return boost::adjacent_vertices(_vertex(id), _graph);
  }

  /// Appends the leaves under \p id from left to right, or \p id itself if it is a leaf.
  void getLeafNodes(int id, std::vector<int>& leaves);
  /// Number of nodes under \p id, itself included.
  int getNumAllChildren(int id) const;
  /// Number of edges on the longest way from \p id down to a leaf.
  int findMaximumDepthToLeaf(int id) const;

private:
  using Vertex = boost::graph_traits<Graph>::vertex_descriptor;
  static Vertex _vertex(int id) { return static_cast<Vertex>(id); }

  Graph _graph;
  int _root = -1;
};

} // namespace orvex
