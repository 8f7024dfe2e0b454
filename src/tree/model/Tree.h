#pragma once

#include <boost/core/noncopyable.hpp>

#include <array>
#include <cstddef>
#include <deque>
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
///
/// Most nodes have no or two children, and only leaves have names. So a node's record has room for
/// two children, and names and longer lists of children are kept apart.
class Tree : private boost::noncopyable
{
public:
  using ChildIterator = const int*;

  /// What a node takes of the memory, without its name and a list of more than two children.
  static constexpr std::size_t bytesPerNode = 24;

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

  void setName(int id, std::string name);
  /// Empty for a node without name.
  const std::string& getName(int id) const
  {
    const int name = _node(id).name;
    return name < 0 ? _noName : _names[static_cast<std::size_t>(name)];
  }

  /// Length of the branch to the parent; 0.0 for none, and for a given 0.0.
  void setDistanceToParent(int id, double distance) { _node(id).distanceToParent = distance; }
  double getDistanceToParent(int id) const { return _node(id).distanceToParent; }
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
  unsigned int getNumChildren(int id) const { return _node(id).numberOfChildren; }
  int getChild(int id, unsigned int index) { return getChildren(id).first[index]; }
  /// The children in their order, to walk without a copy. An iterator gives the child's id.
  std::pair<ChildIterator, ChildIterator> getChildren(int id) const
  {
    const Node& node = _node(id);
    const int* first = node.numberOfChildren > node.children.size() ? _longList(node).data()
                                                                    : node.children.data();
    return {first, first + node.numberOfChildren};
  }

  /// Appends the leaves under \p id from left to right, or \p id itself if it is a leaf.
  void getLeafNodes(int id, std::vector<int>& leaves);
  /// Number of nodes under \p id, itself included.
  int getNumAllChildren(int id) const;
  /// Number of edges on the longest way from \p id down to a leaf.
  int findMaximumDepthToLeaf(int id) const;

private:
  /// The record of a node.
  struct Node
  {
    double distanceToParent = 0.0;
    int name = -1; // its index among the names
    unsigned int numberOfChildren = 0;
    // More of them are in a list, whose index is then the first number.
    std::array<int, 2> children{};
  };
  static_assert(sizeof(Node) == bytesPerNode);

  const Node& _node(int id) const { return _nodes[static_cast<std::size_t>(id)]; }
  Node& _node(int id) { return _nodes[static_cast<std::size_t>(id)]; }
  const std::vector<int>& _longList(const Node& node) const
  {
    return _longLists[static_cast<std::size_t>(node.children[0])];
  }

  std::vector<Node> _nodes;
  // Deques, so that growing moves no element.
  std::deque<std::string> _names;
  std::deque<std::vector<int>> _longLists;
  const std::string _noName;
  int _root = -1;
};

} // namespace orvex
