#include "service/TreeJson.h"

#include "tree/model/Tree.h"

#include <nlohmann/json.hpp>

#include <utility>
#include <vector>

namespace orvex::service
{

std::string toJson(const std::string& text)
{
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string toJson(const Tree& tree)
{
  std::string json = "{\"root\":";
  // For each node whose "children" are being written: the children that are not written yet.
  std::vector<std::pair<Tree::ChildIterator, Tree::ChildIterator>> open;
  const auto begin = [&](int id)
  {
    json += "{\"name\":" + toJson(tree.getName(id)) + ",\"children\":[";
    open.push_back(tree.getChildren(id));
  };
  begin(tree.getRootNodeId());
  while (!open.empty())
  {
    auto& [child, end] = open.back();
    if (child == end)
    {
      json += "]}";
      open.pop_back();
      continue;
    }
    if (json.back() != '[')
    {
      json += ',';
    }
    const int id = *child;
    ++child;
    begin(id);
  }
  return json + "}";
}

} // namespace orvex::service
