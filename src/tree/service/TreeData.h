#pragma once

#include <string>

namespace orvex
{

/// One row of the tree service's list, held by boost::shared_ptr.
struct TreeData
{
  /// The tree's id on the service; -1 if the service gave none.
  int id = -1;
  /// As shown to the user.
  std::string name;
};

} // namespace orvex
