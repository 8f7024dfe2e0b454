#pragma once

#include <boost/shared_ptr.hpp>

#include <string>

namespace orvex
{

class Tree;

/// Makes a tree of the tree service's answer to the request for one tree.
/// \param body  JSON in UTF-8
/// \param url  where it came from, for messages
/// \return never null
/// \throws std::runtime_error  if the body is no JSON or no tree, or the tree is too deep
/// \throws BadJsonValue, a boost::bad_get, if a name is no string or a node's children are no array
boost::shared_ptr<Tree> readTree(std::string body, const std::string& url);

} // namespace orvex
