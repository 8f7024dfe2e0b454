#pragma once

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace orvex
{

class Tree;
struct TreeData;

/// Scheme, host and port of the tree service that downloadTreeList and Reader ask. Fixed by the
/// build.
extern const char* const treeServiceUrl;

/// The body of a tree service's answer, whatever its status. Blocks until it has arrived.
/// \throws std::runtime_error  if the transfer fails
std::string downloadText(const std::string& url);

/// downloadTreeList and Reader for any service, given as scheme, host and port.
void downloadTreeListFrom(const std::string& service,
                          std::vector<boost::shared_ptr<TreeData>>& trees);
boost::shared_ptr<Tree> downloadTreeFrom(const std::string& service, int id);

} // namespace orvex
