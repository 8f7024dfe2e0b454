#include "tree/TreeService.h"
#include "LoopbackServer.h"
#include "Outcome.h"
#include "tree/Document.h"
#include "tree/Reader.h"
#include "tree/Tree.h"
#include "tree/TreeData.h"
#include "tree/TreeList.h"

#include <gmock/gmock.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/variant/get.hpp>

namespace
{

using Rows = std::vector<boost::shared_ptr<orvex::TreeData>>;
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

std::string describe(const Rows& rows)
{
  std::ostringstream text;
  for (const auto& row : rows)
  {
    text << row->id << " " << row->name << ";";
  }
  return text.str();
}

TEST(TreeService, ListsItsTreesUpToTheFirstFault)
{
  for (const auto& [body, outcome] : Cases{
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
    Rows rows{boost::shared_ptr<orvex::TreeData>(new orvex::TreeData{7, "old"})};
    const std::string error =
        errorOf([&, &body = body] { orvex::readTreeList(body, "here", rows); });
    EXPECT_THAT(describe(rows) + error, testing::HasSubstr(outcome)) << body;
  }
}

TEST(TreeService, GivesATree)
{
  for (const auto& [body, outcome] :
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
    const std::string error =
        errorOf([&, &body = body] { tree = describe(*orvex::readTree(body, "here")); });
    EXPECT_THAT(tree + error, testing::HasSubstr(outcome)) << body.substr(0, 99);
  }
}

TEST(TreeService, IsAskedAtTheAddressOfTheBuild)
{
  const boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
  Rows rows;
  {
    const std::string url = orvex::treeServiceUrl;
    LoopbackServer server;
    server.standInForAllOthers();
    server.answer(url + "/trees", R"([{"id":-7,"treeName":"seven"}])", 404);
    server.answer(url + "/trees/-7", R"({"root":{"name":"r","children":[]}})");
    server.answer(url + "/trees/8", R"({"root":{"name":8,"children":[]}})");
    orvex::downloadTreeList(rows);
    ASSERT_EQ(describe(rows), "-7 seven;") << "whatever the status";
    document->loadFromHalvane(rows[0]->id);
    const boost::shared_ptr<orvex::Tree> tree = document->getTree();
    ASSERT_EQ(describe(*tree), "0r;");
    EXPECT_THROW(document->loadFromHalvane(8), boost::bad_get);
    EXPECT_EQ(document->getTree(), tree) << "a failure leaves the tree";
  }
  EXPECT_THAT(errorOf([&] { orvex::downloadTreeList(rows); }),
              testing::StartsWith("Error 3886626924: "));
  EXPECT_EQ(rows.size(), 1u);
}

} // namespace
