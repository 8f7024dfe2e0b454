#include "tree/newick/NewickReader.h"

#include "support/Outcome.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeSize.h"
#include "tree/newick/NodeCount.h"

#include <boost/lexical_cast.hpp>

#include <sys/resource.h>

#include <cmath>

using namespace orvex;
using Case = TextCase;

/// The clade as text; without the root's name and length, as the reader drops them.
static std::string write(const boost::shared_ptr<Tree>& tree, int id)
{
  std::string text;
  for (unsigned int i = 0; i < tree->getNumChildren(id); ++i)
  {
    text += (i == 0 ? '(' : ',') + write(tree, tree->getChild(id, i));
  }
  const double length = tree->getDistanceToParent(id);
  return text + (tree->isLeaf(id) ? "" : ")") + tree->getName(id) +
         (tree->hasDistanceToParent(id) ? ':' + boost::lexical_cast<std::string>(length) : "");
}

/// What was read from a text or a file, written again, or else the error.
static std::string readAgain(const std::string& source, bool isFile = false)
{
  boost::shared_ptr<Tree> tree;
  NewickReader reader;
  const std::string error =
      errorOf([&] { tree = isFile ? reader(source) : reader.parseContents(source); });
  return tree ? write(tree, tree->getRootNodeId()) : error.empty() ? "no tree" : error;
}

TEST(NewickReader, KeepsNamesLengthsAndOrder)
{
  for (const Case& c :
       {Case{"names and lengths of leaves and clades", "((a:1,b:2)x:3,c);", "((a:1,b:2)x:3,c)"},
        Case{"text around the tree is dropped", "[&R] tree: (a,b)root:0.5;", "(a,b)"},
        Case{"blanks belong to a name", "(a:1, b c\t:2)", "(a:1, b c\t:2)"},
        Case{"so do quotes and brackets", "('a,b''s',\"c\"[x],;)", "('a,b''s',\"c\"[x],;)"},
        Case{"any bytes", std::string("(\xC3\xA9\0\xFF,b)", 8),
             std::string("(\xC3\xA9\0\xFF,b)", 8)},
        Case{"a leaf without a name", "()", "()"}, Case{"two of them", "(,)", "(,)"},
        Case{"lengths without names", "(:1,(b):2)", "(:1,(b):2)"},
        Case{"a length of 0 counts as none", "(a:0,b:-0.0)", "(a,b)"},
        Case{"any number of children", "((),(a,b),(c,d,e),(f,g,h,i))",
             "((),(a,b),(c,d,e),(f,g,h,i))"},
        Case{"lists of children that grow in turn", "(a,b,(c,d,(e,f,g,h),i,j),k,l)",
             "(a,b,(c,d,(e,f,g,h),i,j),k,l)"},
        Case{"text before a group begins the next name", "(x(a,b),c)", "((xa,b),c)"},
        Case{"also between two groups", "((a)x(b),c)", "((a),(xb),c)"},
        Case{"the last of two trees", "(a,b)x;(c,d)y;", "(c,d)"},
        Case{"a tree without its end, up to the last complete item", "(a,(b,c", "(a,(b))"},
        Case{"and without the name of a clade", "(a,(b)x", "(a,(b))"}, Case{"only a root", "(", ""},
        Case{"text without a group", "a:b;", "no tree"}, Case{"nothing", "", "no tree"}})
  {
    EXPECT_EQ(readAgain(c.text), c.expected) << c.what;
  }
  const std::string large = "(" + std::string(1'000'000, '\xE9') + ",b)";
  EXPECT_TRUE(readAgain(large) == large) << "a name of a million characters";
}

static const std::string nexus = " This is a NEXUS file; orvex-convert makes Newick of it.";

TEST(NewickReader, SaysWhereACommaOrParenthesisIsTooMany)
{
  for (const Case& c :
       {Case{"after the tree", "(a,b))", "Unexcepted ')' encountered: line 1, column 6."},
        Case{"at the start", ")", "Unexcepted ')' encountered: line 1, column 1."},
        Case{"a comma", "(a,b),c", "Unexpected comma encountered: line 1, column 6."},
        Case{"a comma first", "a,b", "Unexpected comma encountered: line 1, column 2."},
        Case{"in another format", "\xEF\xBB\xBF \t#nExUs (a),",
             "Unexpected comma encountered: line 1, column 16." + nexus},
        Case{"its mark in a name", "a #NEXUS,", "Unexpected comma encountered: line 1, column 9."}})
  {
    EXPECT_EQ(readAgain(c.text), c.expected) << c.what;
  }
}

TEST(NewickReader, SaysWhichLengthIsNoNumberAndWhy)
{
  const std::string comments =
      " Comments have no meaning in this format. orvex-convert takes them out.";
  const std::string quotes =
      " Quotes have no meaning in this format. orvex-convert takes them out.";
  const std::string marks =
      " Marks in braces have no meaning in this format. orvex-convert takes them out.";
  const std::string blanks =
      " No blank may stand before or after a number. orvex-convert takes such blanks out.";
  const std::string most = "a23456789b123456789c123456789d123456789e123456789f12345678\xC3\xA9";
  struct Row
  {
    std::string text;
    int column;
    std::string length, name, reason;
  };
  for (const Row& row :
       {Row{"(b:(1a))", 5, "1a", "b", ""}, Row{"(b:(,c))", 3, "", "b", ""}, // at the ":"
        Row{"(b:,c)", 3, "", "b", ""}, Row{"('k:x; y':1,c)", 5, "x; y':1", "'k", quotes},
        Row{"(k,l:x' :1,c)", 6, "x' :1", "l", quotes}, Row{"(a:1[x],b)", 4, "1[x]", "a", comments},
        Row{"(a[&x:1],b)", 7, "1]", "a[&x", comments},
        Row{"( \tit's\t:\t-2e3\r )", 10, "?-2e3\\r ", "it's?", blanks},
        Row{"#NEXUS;(a: 1)", 11, " 1", "a", nexus}, Row{"(b:" + most + ")", 4, most, "b", ""},
        Row{"(b:x" + most + ")", 4, 'x' + most.substr(0, 58) + "...", "b", ""}})
  {
    EXPECT_EQ(readAgain(row.text),
              "Line 1, column " + std::to_string(row.column) + ": \"" + row.length +
                  "\" is no branch length. It follows the name \"" + row.name + "\"." + row.reason);
  }
}

TEST(NewickReader, ReadsAnotherTextOnlyAfterACompleteOne)
{
  NewickReader reader;
  EXPECT_EQ(reader.parseContents("((a,b)x,c)(d)")->getRootNodeId(), 5)
      << "the first of two trees is left behind in the second one's store";
  EXPECT_EQ(reader.parseContents("(a,(b")->getNumberOfNodes(), 3u);
  EXPECT_THAT(errorOf([&] { reader.parseContents("(c,d)"); }), testing::HasSubstr("no other"));
}

static void expectLengthAsTheLibrary(const std::string& length)
{
  double expected = 0.0;
  const bool valid = boost::conversion::try_lexical_convert(length, expected);
  expected = valid ? expected : 0.0;
  double read = 0.0;
  const std::string error = errorOf(
      [&] { read = NewickReader().parseContents("(x:" + length + ")")->getDistanceToParent(1); });
  EXPECT_EQ(error.empty(), valid) << length << " " << error;
  EXPECT_EQ(std::signbit(read), std::signbit(expected)) << length;
  EXPECT_THAT(read, testing::NanSensitiveDoubleEq(expected)) << length;
}

TEST(NewickReader, ReadsBranchLengthsAsLexicalCastDoes)
{
  std::istringstream forms(
      "1|0.5|.5|5.|1e-3|-2|+2|1E+5|1e5|-.5e1|-0|007|1e-320|1e-400|1e400|nan|-inf|"
      "infinity|.|-|--1|1e|1e-|1-|1.2.3|0x10|1f|1e5.0|1;|1\r|1e5e5| 1||x|1 |1:2");
  for (std::string text; std::getline(forms, text, '|');)
  {
    expectLengthAsTheLibrary(text);
  }
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round)
  {
    std::string text;
    std::generate_n(std::back_inserter(text), random() % 12,
                    [&] { return "0123456789012345678901234567899..-+eE"[random() % 37]; });
    expectLengthAsTheLibrary(text);
  }
}

TEST(NewickReader, JoinsTheLinesOfAFile)
{
  const std::string name = newFolder() + "/lines.nwk";
  for (const Case& c :
       {Case{"line ends are dropped", "((long\nname\r\n,b\n)\n\nx,\n\nc);\n",
             "((longname\r,b)x,c)"},
        Case{"no line end at the end", "(a,\nb)", "(a,b)"}, Case{"an empty file", "", "no tree"},
        Case{"an error tells the line of the file", "((a:1,\nb\nc:x\r))",
             R"(Line 3, column 3: "x\r" is no branch length. It follows the name "bc".)"},
        Case{"an empty length is at its colon", "(a,\nb:\n\n)",
             R"(Line 2, column 2: "" is no branch length. It follows the name "b".)"},
        Case{"a comma far behind",
             "\n" + std::string(70'000, '\n') + std::string(70'000, ' ') + ",",
             "Unexpected comma encountered: line 70002, column 70001."}})
  {
    EXPECT_EQ(readAgain(writeFile(name, c.text), true), c.expected) << c.what;
  }
}

TEST(NewickReader, SaysWhyAFileCannotBeRead)
{
  const std::string folder = newFolder();
  const std::string file = writeFile(folder + "/tree.nwk", "(a,b);");
  EXPECT_THAT(readAgain(folder + "/missing", true), testing::HasSubstr("file_size: No such file"));
  EXPECT_THAT(readAgain(folder, true), testing::StartsWith("boost::filesystem::file_size: "));
  // A regular file that opens, but has nothing at its start to be read.
  EXPECT_EQ(readAgain("/proc/self/mem", true), "Could not read file.");
  // With no descriptor left not even root can open a file.
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
  const rlimit none{0, limit.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  EXPECT_EQ(readAgain(file, true), "Could not open file.");
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
}

TEST(NewickReader, KnowsTheTreesSizeBeforeItIsMade)
{
  std::string large = "(";
  for (int i = 0; i < 20'000; ++i)
  {
    large += "((" + std::string(i % 200, 'n') + ":0.125,b)x:1.5," + std::string(30, 'c') + ")" +
             (i % 3000 == 2999 ? ");(" : ",");
  }
  for (const std::string& text : {large, large.substr(0, 5000), std::string("(a,b);((c,d),e)f;"),
                                  std::string("(())"), std::string("no tree")})
  {
    SCOPED_TRACE(text.substr(0, 20));
    const TreeSize expected = sizeOfNewick(text + ")");
    const auto tree = NewickReader().parseContents(text);
    const TreeSize size = tree ? sizeToShow(*tree) : TreeSize();
    EXPECT_NEAR(double(expected.nodes), double(size.nodes), 1) << "the last item may be incomplete";
    EXPECT_NEAR(double(expected.shownNodes), double(size.shownNodes), 1);
    EXPECT_NEAR(double(expected.shownLeaves), double(size.shownLeaves), 1);
    EXPECT_NEAR(double(expected.labelBytes), double(size.labelBytes), double(size.labelBytes) / 20)
        << "by samples";
  }
}
