#include "foundation/system/NumberFile.h"
#include "tree/service/JsonSize.h"
#include "tree/service/JsonTree.h"
#include "tree/service/JsonTreeList.h"

#include <boost/range/iterator_range.hpp>

#include "support/Outcome.h"
#include "tree/json/json_spirit.h"
#include "tree/model/Tree.h"
#include "tree/service/TreeData.h"

#include <sys/resource.h>

using Case = TextCase;

/// Each node's id, name and children.
static std::string describe(const orvex::Tree& tree)
{
  std::ostringstream text;
  for (int id = 0; id < static_cast<int>(tree.getNumberOfNodes()); ++id)
  {
    text << id << tree.getName(id) << (tree.hasDistanceToParent(id) ? "!" : "");
    for (const int child : boost::make_iterator_range(tree.getChildren(id)))
    {
      text << " " << child;
    }
    text << ";";
  }
  return text.str();
}

TEST(TreeService, ListsItsTreesUpToTheFirstFault)
{
  for (const Case& c :
       {Case{"ids and names; other keys are left out",
             R"([{"id":17,"treeName":"seed plants","owner":{"x":[1,{"id":5}]}},
                {"treeName":"Fungi 18S","id":42}])",
             "7 old;17 seed plants;42 Fungi 18S;"},
        Case{"no trees", "[]", "7 old;"},
        Case{"a missing name or id", R"([{"id":-3},{"treeName":"n"}])", "7 old;-3 ;-1 n;"},
        Case{"the last of two ids", R"([{"id":1,"id":2}])", "7 old;2 ;"},
        Case{"no integer", R"([{"id":1},{"id":17.0}])", "7 old;1 ;boost::bad_get"},
        Case{"the greatest integer and the next", R"([{"id":2147483647},{"id":2147483648}])",
             "7 old;2147483647 ;boost::bad_get"},
        Case{"below the least integer", R"([{"id":-2147483649}])", "7 old;boost::bad_get"},
        Case{"a name that is no text", R"([{"treeName":null}])",
             "7 old;The \"treeName\" of entry 1 of the tree service's list is no text."},
        Case{"an entry that is no object", R"([{"id":1},2])", "7 old;1 ;Entry 2 of"},
        Case{"no list", R"({"error":"no such page"})",
             "7 old;The tree service did not answer with a list of"},
        Case{"a list without an end", R"([{"id":1},)",
             "7 old;The tree service did not answer with JSON, URL = here"},
        Case{"nothing", "", "7 old;The tree service did not answer with JSON, URL = here"}})
  {
    std::vector<boost::shared_ptr<orvex::TreeData>> rows{
        boost::shared_ptr<orvex::TreeData>(new orvex::TreeData{7, "old"})};
    const std::string error = errorOf([&] { orvex::readTreeList(c.text, "here", rows); });
    std::string found;
    for (const auto& row : rows)
    {
      found += std::to_string(row->id) + " " + row->name + ";";
    }
    EXPECT_THAT(found + error, testing::HasSubstr(c.expected)) << c.what;
  }
}

TEST(TreeService, GivesATreeOrSaysWhatIsWrongWithIt)
{
  const std::string deep(1'000'000, '[');
  for (const Case& c :
       {Case{"names, lengths and order",
             R"({"root":{"name":"","children":[{"name":"","children":[
                {"name":"a","children":[]},{"name":"b","children":[],"length":0.5}]},
                {"children":[],"name":"c"}]},"root2":1})",
             "0 1 4;1 2 3;2a;3b;4c;"},
        Case{"one node without a name", R"({"root":{"children":[]}})", "0;"},
        Case{"a letter beyond ASCII", R"({"root":{"name":"\u00e9","children":[]}})", "0\xc3\xa9;"},
        Case{"no root", R"({"error":"no such tree"})", "a tree, URL = here"},
        Case{"no object", R"([{"root":{}}])", "a tree, URL = here"},
        Case{"a root that is no object", R"({"root":[]})", "Node 0 of"},
        Case{"a node without children", R"({"root":{"children":[{"name":"a"}]}})", "Node 1 of"},
        Case{"children that are no list", R"({"root":{"children":{}}})",
             "The \"children\" of node 0 of the tree service's answer are no list."},
        Case{"a name that is no text", R"({"root":{"name":5,"children":[]}})",
             "The \"name\" of node 0 of the tree service's answer is no text."},
        Case{"half an answer", R"({"root":)", "JSON, URL = here"},
        Case{"a million open lists", deep, "JSON, URL = here"},
        Case{"the same, closed", deep + std::string(deep.size(), ']'), "a tree, URL = here"}})
  {
    std::string tree;
    const std::string error = errorOf([&] { tree = describe(*orvex::readTree(c.text, "here")); });
    EXPECT_THAT(tree + error, testing::HasSubstr(c.expected)) << c.what;
  }
}

TEST(TreeService, RefusesAnAnswerOfTooManyValues)
{
  json_spirit::Value_impl<json_spirit::Config_map<std::string>> value;
  EXPECT_TRUE(json_spirit::read(R"([[],{"a":1}])", value, 4));
  EXPECT_THAT(errorOf([&] { json_spirit::read(R"([[],{"a":1}])", value, 3); }),
              testing::HasSubstr("more than 3 JSON values"));
}

TEST(TreeService, TellsTheTreesSizeFromTheTextAndRefusesWhatDoesNotFit)
{
  const std::string name = R"(a \"name\": [] {} \\)" + std::string(80, 'n');
  const std::string text = R"({"root": {"name":"","children":[{"name":")" + name +
                           R"(","children":[ ]},{"children":[]}]}})";
  const orvex::TreeSize size = orvex::sizeOfJson(text).tree;
  EXPECT_EQ(size.nodes, 3u);
  EXPECT_EQ(size.leaves, 2u);
  EXPECT_NEAR(double(size.nameBytes), double(name.size()), 20);

  rlimit before{};
  getrlimit(RLIMIT_AS, &before);
  const rlimit little{*Kelmar::System::numberAfter("/proc/self/status", "VmSize:") * 1024 +
                          (64u << 20),
                      before.rlim_max};
  const std::string large(2 << 20, '{');
  setrlimit(RLIMIT_AS, &little);
  const std::string error = errorOf([&] { orvex::readTree(large, "here"); });
  setrlimit(RLIMIT_AS, &before);
  EXPECT_THAT(error, testing::MatchesRegex("To show the tree's 2097151 nodes takes .* of memory. "
                                           ".* that this process may use .ulimit -v.."));
}
