#pragma once

#include "foundation/progress/Stage.h"

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
/// \param stage  that the download is, for who hears of this thread's work; null to report nothing
/// \throws std::runtime_error  if the transfer fails
std::string downloadText(const std::string& url, const Kelmar::Progress::Stage* stage = nullptr);

/// downloadTreeList and Reader for any service, given as scheme, host and port.
void downloadTreeListFrom(const std::string& service,
                          std::vector<boost::shared_ptr<TreeData>>& trees);
boost::shared_ptr<Tree> downloadTreeFrom(const std::string& service, int id);

} // namespace orvex
