#include "tree/JsonTree.h"
#include "tree/JsonTreeList.h"

#include "support/Outcome.h"
#include "tree/Tree.h"
#include "tree/TreeData.h"

#include <gmock/gmock.h>

namespace
{

using orvex::test::errorOf;
using Cases = std::vector<std::pair<std::string, const char*>>;

/// Each node's id, name and children.
std::string describe(const orvex::Tree& tree)
{
  std::ostringstream text;
  for (int id = 0; id < static_cast<int>(tree.getNumberOfNodes()); ++id)
  {
    text << id << tree.getName(id) << (tree.hasDistanceToParent(id) ? "!" : "");
    for (auto [child, end] = tree.getChildren(id); child != end; ++child)
    {
      text << " " << *child;
    }
    text << ";";
  }
  return text.str();
}

TEST(TreeService, ListsItsTreesUpToTheFirstFault)
{
  for (const auto& c : Cases{
           {R"([{"id":17,"treeName":"seed plants","owner":{"x":[1,{"id":5}]}},
                {"treeName":"Fungi 18S","id":42}])",
            "7 old;17 seed plants;42 Fungi 18S;"},
           {"[]", "7 old;"},
           {R"([{"id":-3},{"treeName":"n"}])", "7 old;-3 ;-1 n;"},
           {R"([{"id":1,"id":2}])", "7 old;2 ;"},
           {R"([{"id":1},{"id":17.0}])", "7 old;1 ;boost::bad_get"},
           {R"([{"id":2147483647},{"id":2147483648}])", "7 old;2147483647 ;boost::bad_get"},
           {R"([{"id":-2147483649}])", "7 old;boost::bad_get"},
           {R"([{"treeName":null}])", "7 old;boost::bad_get"},
           {R"([{"id":1},2])", "7 old;1 ;Entry 2 of"},
           {R"({"error":"no such page"})", "7 old;The tree service did not answer with a list of"},
           {R"([{"id":1},)", "7 old;The tree service did not answer with JSON, URL = here"},
           {"", "7 old;The tree service did not answer with JSON, URL = here"}})
  {
    std::vector<boost::shared_ptr<orvex::TreeData>> rows{
        boost::shared_ptr<orvex::TreeData>(new orvex::TreeData{7, "old"})};
    const std::string error = errorOf([&] { orvex::readTreeList(c.first, "here", rows); });
    std::string found;
    for (const auto& row : rows)
    {
      found += std::to_string(row->id) + " " + row->name + ";";
    }
    EXPECT_THAT(found + error, testing::HasSubstr(c.second)) << c.first;
  }
}

TEST(TreeService, GivesATree)
{
  for (const auto& c :
       Cases{{R"({"root":{"name":"","children":[{"name":"","children":[
                {"name":"a","children":[]},{"name":"b","children":[],"length":0.5}]},
                {"children":[],"name":"c"}]},"root2":1})",
              "0 1 4;1 2 3;2a;3b;4c;"},
             {R"({"root":{"children":[]}})", "0;"},
             {R"({"root":{"name":"\u00e9","children":[]}})", "0\xc3\xa9;"},
             {R"({"error":"no such tree"})", "a tree, URL = here"},
             {R"([{"root":{}}])", "a tree, URL = here"},
             {R"({"root":[]})", "Node 0 of"},
             {R"({"root":{"children":[{"name":"a"}]}})", "Node 1 of"},
             {R"({"root":{"children":{}}})", "boost::bad_get"},
             {R"({"root":{"name":5,"children":[]}})", "boost::bad_get"},
             {R"({"root":)", "JSON, URL = here"},
             {std::string(1'000'000, '['), "JSON, URL = here"},
             {std::string(1'000'000, '[') + std::string(1'000'000, ']'), "a tree, URL = here"}})
  {
    std::string tree;
    const std::string error = errorOf([&] { tree = describe(*orvex::readTree(c.first, "here")); });
    EXPECT_THAT(tree + error, testing::HasSubstr(c.second)) << c.first.substr(0, 99);
  }
}

} // namespace
