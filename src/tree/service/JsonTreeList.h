#pragma once

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace orvex
{

struct TreeData;

/// Appends a row for each entry of the tree service's answer to the request for its list, in the
/// order of the answer. After a failure the rows before the bad entry stay.
/// \param body  JSON in UTF-8
/// \param url  where it came from, for messages
/// \throws std::runtime_error  if the body is no JSON or no list of trees
/// \throws boost::bad_get  if an id is no integer or a name no string
void readTreeList(const std::string& body, const std::string& url,
                  std::vector<boost::shared_ptr<TreeData>>& trees);

} // namespace orvex
