#pragma once

#include <boost/shared_ptr.hpp>

#include <vector>

namespace orvex
{

struct TreeData;

/// Asks the tree service for its list and appends a row for each entry, in the service's order.
/// Blocks until the answer has arrived. After a failure the rows before the bad entry stay.
/// \throws std::runtime_error  if the download fails or the answer is no list of trees
/// \throws boost::bad_get  if an id is no integer or a name no string
void downloadTreeList(std::vector<boost::shared_ptr<TreeData>>& trees);

} // namespace orvex
