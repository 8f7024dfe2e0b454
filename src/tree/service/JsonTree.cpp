#include "tree/service/JsonTree.h"

#include "foundation/progress/Work.h"
#include "tree/json/json_spirit.h"
#include "tree/model/OpeningStages.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeDepth.h"
#include "tree/model/TreeMemory.h"
#include "tree/service/BadJsonValue.h"
#include "tree/service/JsonSize.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orvex::Detail
{
namespace
{

using Value = json_spirit::Value_impl<json_spirit::Config_map<std::string>>;

// Null if the value is no object or has no such key.
const Value* find(const Value& value, const std::string& key)
{
  const Value::Object* object = value.if_obj();
  if (!object)
  {
    return nullptr;
  }
  const auto found = object->find(key);
  return found == object->end() ? nullptr : &found->second;
}

// Only for a large answer, since to ask takes longer than to read a small one. The text goes when
// it is parsed, the values when the tree is made.
void requireMemoryFor(const std::string& body)
{
  constexpr std::size_t leastToAsk = std::size_t(1) << 20;
  if (body.size() >= leastToAsk)
  {
    const JsonSize size = sizeOfJson(body);
    requireMemory(
        "To show the tree's " + std::to_string(size.tree.nodes) + " nodes",
        std::max(size.valueBytes, memoryToReadAndShow(size.tree, size.valueBytes, body.size())));
  }
}

// Reports, as it takes longer than to make the tree of it.
bool read(const std::string& body, Value& document)
{
  const auto objects = std::count(body.begin(), body.end(), '{');
  Kelmar::Progress::Work work(OpeningStages::readingAnswer, static_cast<std::size_t>(objects));
  return json_spirit::read(body, document, json_spirit::maximumValues, &work);
}

// Levels below a node. A value that is no node counts as a leaf; createNode reports it.
unsigned int depthBelow(const Value& root)
{
  unsigned int deepest = 0;
  std::vector<std::pair<const Value*, unsigned int>> open{{&root, 0}};
  while (!open.empty())
  {
    const auto [node, depth] = open.back();
    open.pop_back();
    deepest = std::max(deepest, depth);
    const Value* children = find(*node, "children");
    if (children && children->if_array())
    {
      for (const Value& child : children->get_array())
      {
        open.emplace_back(&child, depth + 1);
      }
    }
  }
  return deepest;
}

// Separate functions, so that their temporaries take no room in the stack frames of createNode.
void setName(const Value& node, int id, orvex::Tree& tree)
{
  const Value* name = find(node, "name");
  if (!name)
  {
    return;
  }
  if (!name->if_str())
  {
    throw BadJsonValue("The \"name\" of node " + std::to_string(id) +
                       " of the tree service's answer is no text.");
  }
  tree.setName(id, name->get_str());
}

const Value::Array& getChildren(const Value& node, int id)
{
  if (!node.if_obj())
  {
    throw std::runtime_error("Node " + std::to_string(id) +
                             " of the tree service's answer is no JSON object.");
  }
  const Value* children = find(node, "children");
  if (!children)
  {
    throw std::runtime_error("Node " + std::to_string(id) +
                             " of the tree service's answer has no \"children\".");
  }
  if (!children->if_array())
  {
    throw BadJsonValue("The \"children\" of node " + std::to_string(id) +
                       " of the tree service's answer are no list.");
  }
  return children->get_array();
}

} // namespace
} // namespace orvex::Detail

// Recurses once for each level of the tree; the depth is checked before. It has no namespace, the
// value by its full type and the tree by value, since its form is prescribed so. The loop has an
// index and not an iterator, so that a level takes little of the stack.
static int createNode(const json_spirit::Value_impl<json_spirit::Config_map<std::string>>& value,
                      boost::shared_ptr<orvex::Tree> tree)
{
  const int id = tree->createNode();
  orvex::Detail::setName(value, id, *tree);
  const auto& children = orvex::Detail::getChildren(value, id);
  for (std::size_t i = 0; i < children.size(); ++i)
  {
    const int child = createNode(children[i], tree);
    tree->setRelationship(id, child);
  }
  return id;
}

namespace orvex
{

boost::shared_ptr<Tree> readTree(std::string body, const std::string& url)
{
  boost::shared_ptr<Tree> tree(new Tree);
  Detail::requireMemoryFor(body);
  Detail::Value document;
  if (!Detail::read(body, document))
  {
    throw std::runtime_error("The tree service did not answer with JSON, URL = " + url);
  }
  std::string().swap(body); // so that its memory serves the tree
  const Detail::Value* root = Detail::find(document, "root");
  if (!root)
  {
    throw std::runtime_error("The tree service did not answer with a tree, URL = " + url);
  }
  requireRoomForDepth(Detail::depthBelow(*root));
  const int rootId = createNode(*root, tree);
  tree->setRootNodeId(rootId);
  return tree;
}

} // namespace orvex
