#include "tree/TreeService.h"
#include "LoopbackServer.h"
#include "tree/Document.h"
#include "tree/Reader.h"
#include "tree/Tree.h"
#include "tree/TreeData.h"
#include "tree/TreeDepth.h"
#include "tree/TreeList.h"

#include <gmock/gmock.h>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/variant/get.hpp>

namespace
{

using Rows = std::vector<boost::shared_ptr<orvex::TreeData>>;
using testing::HasSubstr;

/// One line for each node: id, name, children.
std::string describe(const orvex::Tree& tree)
{
  std::ostringstream text;
  text << "root " << tree.getRootNodeId();
  for (int id = 0; id < static_cast<int>(tree.getNumberOfNodes()); ++id)
  {
    text << "; " << id << tree.getName(id) << (tree.hasDistanceToParent(id) ? "!" : "");
    for (auto [child, end] = tree.getChildren(id); child != end; ++child)
    {
      text << " " << *child;
    }
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

/// The exception's text, or "bad_get" for that type.
template <class Function>
std::string errorOf(Function function)
{
  try
  {
    function();
  }
  catch (const boost::bad_get&)
  {
    return "bad_get";
  }
  catch (const std::runtime_error& e)
  {
    return e.what();
  }
  return "";
}

struct ServiceCase
{
  const char* what;
  std::string body;
  const char* result;
  const char* error;
};

TEST(TreeService, ListsItsTrees)
{
  for (const ServiceCase& c : {
           ServiceCase{"the rows in their order, other keys ignored",
                       R"([{"id":17,"treeName":"rbcL seed plants","owner":{"x":[1,{"id":5}]}},
                           {"treeName":"Fungi 18S","id":42}])",
                       "7 old;17 rbcL seed plants;42 Fungi 18S;", ""},
           {"no entries", "[]", "7 old;", ""},
           {"no name, no id", R"([{"id":-3},{"treeName":"n"}])", "7 old;-3 ;-1 n;", ""},
           {"the last of a key given twice", R"([{"id":1,"id":2}])", "7 old;2 ;", ""},
           {"17.0 is no integer", R"([{"id":1},{"id":17.0}])", "7 old;1 ;", "bad_get"},
           {"beyond int", R"([{"id":2147483647},{"id":2147483648}])", "7 old;2147483647 ;",
            "bad_get"},
           {"below int", R"([{"id":-2147483649}])", "7 old;", "bad_get"},
           {"a name that is no string", R"([{"treeName":null}])", "7 old;", "bad_get"},
           {"an entry that is no object", R"([{"id":1},2])", "7 old;1 ;", "Entry 2 of"},
           {"no list", R"({"error":"no such page"})", "7 old;", "a list of trees, URL = http"},
           {"no JSON", "<html>", "7 old;", "JSON, URL = http"},
           {"cut short", R"([{"id":1},)", "7 old;", "JSON, URL = http"},
           {"nothing", "", "7 old;", "JSON, URL = http"},
       })
  {
    SCOPED_TRACE(c.what);
    LoopbackServer server;
    server.answer("/trees", c.body, 404);
    Rows rows{boost::shared_ptr<orvex::TreeData>(new orvex::TreeData{7, "old"})};
    EXPECT_THAT(errorOf([&] { orvex::downloadTreeListFrom(server.url(), rows); }),
                HasSubstr(c.error));
    EXPECT_EQ(describe(rows), c.result);
  }
}

TEST(TreeService, GivesATree)
{
  for (const ServiceCase& c : {
           ServiceCase{"parents before children, order kept",
                       R"({"root":{"name":"","children":[{"name":"","children":[
                           {"name":"a","children":[]},{"name":"b","children":[],"length":0.5}]},
                           {"children":[],"name":"c"}]},"root2":1})",
                       "root 0; 0 1 4; 1 2 3; 2a; 3b; 4c", ""},
           {"root and leaf, without a name", R"({"root":{"children":[]}})", "root 0; 0", ""},
           {"letters beyond ASCII", R"({"root":{"name":"\u00e9","children":[]}})",
            "root 0; 0\xc3\xa9", ""},
           {"no root", R"({"error":"no such tree"})", "", "a tree, URL = http"},
           {"no object", R"([{"root":{}}])", "", "a tree, URL = http"},
           {"a root that is no node", R"({"root":[]})", "", "Node 0 of"},
           {"no children", R"({"root":{"children":[{"name":"a"}]}})", "", "Node 1 of"},
           {"children that are no list", R"({"root":{"children":{}}})", "", "bad_get"},
           {"a name that is no string", R"({"root":{"name":5,"children":[]}})", "", "bad_get"},
           {"no JSON", R"({"root":)", "", "JSON, URL = http"},
           {"a million nested arrays", std::string(1'000'000, '['), "", "JSON, URL = http"},
           {"a million more", std::string(1'000'000, '[') + std::string(1'000'000, ']'), "",
            "a tree, URL = http"},
       })
  {
    SCOPED_TRACE(c.what);
    LoopbackServer server;
    server.answer("/trees/42", c.body);
    boost::shared_ptr<orvex::Tree> tree;
    EXPECT_THAT(errorOf([&] { tree = orvex::downloadTreeFrom(server.url(), 42); }),
                HasSubstr(c.error));
    EXPECT_EQ(tree ? describe(*tree) : "", c.result);
  }
}

TEST(TreeService, IsAskedAtTheAddressOfTheBuild)
{
  boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
  Rows rows;
  {
    const std::string url = orvex::treeServiceUrl;
    LoopbackServer server;
    server.standInForAllOthers();
    server.answer(url + "/trees", R"([{"id":-7,"treeName":"seven"}])");
    server.answer(url + "/trees/-7", R"({"root":{"name":"r","children":[]}})");
    server.answer(url + "/trees/8", R"({"root":{"name":8,"children":[]}})");
    orvex::downloadTreeList(rows);
    ASSERT_EQ(describe(rows), "-7 seven;");
    document->loadFromHalvane(rows[0]->id);
    const boost::shared_ptr<orvex::Tree> tree = document->getTree();
    ASSERT_EQ(describe(*tree), "root 0; 0r");
    EXPECT_THROW(document->loadFromHalvane(8), boost::bad_get);
    EXPECT_EQ(document->getTree(), tree) << "a failure leaves the tree";
  }
  EXPECT_THAT(errorOf([&] { orvex::downloadTreeList(rows); }),
              testing::StartsWith("Error 3886626924: "));
  EXPECT_EQ(rows.size(), 1u);
}

TEST(TreeService, RefusesATreeDeeperThanTheStack)
{
  const unsigned int most = orvex::maximumTreeDepth();
  for (const unsigned int depth : {most, most + 1, 1'000'000u})
  {
    SCOPED_TRACE(depth);
    std::string body;
    std::string end;
    for (unsigned int i = 0; i < depth; ++i)
    {
      body += R"({"children":[)";
      end += "]}";
    }
    LoopbackServer server;
    server.answer("/trees/1", R"({"root":)" + body + R"({"children":[]})" + end + "}");
    boost::shared_ptr<orvex::Tree> tree;
    const std::string error = errorOf([&] { tree = orvex::downloadTreeFrom(server.url(), 1); });
    EXPECT_EQ(bool(tree), depth <= most);
    EXPECT_THAT(error, HasSubstr(tree ? "" : std::to_string(depth) + " levels deep"));
  }
}

} // namespace
