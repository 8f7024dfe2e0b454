#pragma once

#include <boost/shared_ptr.hpp>

namespace orvex
{

class Tree;

/// Reads a tree from the tree service, as NewickReader does from a file.
class Reader
{
public:
  /// Blocks until the answer has arrived.
  /// \param id  of the tree on the service, as TreeData has it
  /// \return never null
  /// \throws std::runtime_error  if the download fails, the answer is no tree, or it is too deep
  /// \throws boost::bad_get  if a name is no string or a node's children are no array
  boost::shared_ptr<Tree> operator()(int id);
};

} // namespace orvex
