#include "tree/NewickReader.h"

#include "tree/RandomTree.h"
#include "tree/TemporaryFolder.h"
#include "tree/Tree.h"

#include <boost/filesystem/exception.hpp>
#include <boost/lexical_cast.hpp>
#include <gmock/gmock.h>

#include <sys/resource.h>

#include <cmath>
#include <functional>
#include <sstream>
#include <utility>

namespace
{

using orvex::NewickReader;
using orvex::Tree;

boost::shared_ptr<Tree> parse(const std::string& text)
{
  return NewickReader().parseContents(text);
}

/// The clade as text; without the root's name and length, as the reader drops them.
std::string write(Tree& tree, int id)
{
  std::string text;
  for (unsigned int i = 0; i < tree.getNumChildren(id); ++i)
  {
    text += (i == 0 ? '(' : ',') + write(tree, tree.getChild(id, i));
  }
  text += (tree.isLeaf(id) ? "" : ")") + tree.getName(id);
  if (tree.hasDistanceToParent(id))
  {
    text += ':' + boost::lexical_cast<std::string>(tree.getDistanceToParent(id));
  }
  return text;
}

std::string write(const boost::shared_ptr<Tree>& tree)
{
  return tree ? write(*tree, tree->getRootNodeId()) : "none";
}

TEST(NewickReader, ReadsWhatStandsThere)
{
  struct Case
  {
    std::string text;
    std::string tree;
  };
  for (const Case& c : {
           Case{"((a:1,b:2)x:3,c);", "((a:1,b:2)x:3,c)"},
           Case{"[&R] tree: (a,b)root:0.5;", "(a,b)"}, // what stands around is dropped
           Case{"(a:1, b c:2)", "(a:1, b c:2)"},
           Case{"(a, b c\t);", "(a, b c\t)"},
           Case{"('a,b''s',\"c\"[x],;)", "('a,b''s',\"c\"[x],;)"},
           Case{"()", "()"},
           Case{"(,)", "(,)"},
           Case{"(:1,(b):2)", "(:1,(b):2)"},
           Case{"(a:0,b:-0.0)", "(a,b)"},
           Case{"(x(a,b),c)", "((xa,b),c)"}, // text before a nested group
           Case{"((a)x(b),c)", "((a),(xb),c)"},
           Case{"(a)(b)", "(b)"},
           Case{"(a,b)x;(c,d)y;", "(c,d)"},
           Case{"(a,(b,c", "(a,(b))"},
           Case{"(a,(b)x", "(a,(b))"},
           Case{"(", ""},
           Case{"a:b;", "none"},
           Case{"", "none"},
           Case{std::string("(\xC3\xA9\0\xFF,b)", 8), std::string("(\xC3\xA9\0\xFF,b)", 8)},
       })
  {
    EXPECT_EQ(write(parse(c.text)), c.tree) << c.text;
  }
}

TEST(NewickReader, NumbersNodesAndLeavesEarlierTreesBehind)
{
  const boost::shared_ptr<Tree> tree = parse("((a,b)x,c)(d)");
  EXPECT_EQ(tree->getRootNodeId(), 5);
  EXPECT_EQ(tree->getNumberOfLeafNodes(), 4u);
  std::string names;
  for (int id = 0; id < int(tree->getNumberOfNodes()); ++id)
  {
    names += tree->getName(id) + ' ';
  }
  EXPECT_EQ(names, " x a b c  d ");
}

TEST(NewickReader, RefusesWhatStandsOutside)
{
  const std::pair<const char*, const char*> cases[] = {
      {"(a,b))", "Unexcepted ')' encountered"},
      {")", "Unexcepted ')' encountered"},
      {"(a,b),c", "Unexpected comma encountered"},
      {"a,b", "Unexpected comma encountered"},
  };
  for (const auto& c : cases)
  {
    EXPECT_THAT([&] { parse(c.first); }, testing::ThrowsMessage<std::runtime_error>(c.second));
  }
}

/// A number as text, so that NaN and -0 compare too.
std::string textOf(const std::function<double()>& number)
{
  try
  {
    return boost::lexical_cast<std::string>(number());
  }
  catch (const boost::bad_lexical_cast&)
  {
    return "refused";
  }
}

std::string castByLibrary(const std::string& text)
{
  return textOf([&] { return boost::lexical_cast<double>(text); });
}

std::string castByReader(const std::string& text)
{
  return textOf([&] { return parse("(x:" + text + ")")->getDistanceToParent(1); });
}

TEST(NewickReader, ReadsBranchLengthsAsLexicalCastDoes)
{
  std::istringstream forms(
      "1|0.5|.5|5.|1e-3|-2|+2|1E+5|1e5|-.5e1|-0|007|1e-320|1e-400|1e400|nan|-inf|"
      "infinity|.|-|--1|1e|1e-|1-|1.2.3|0x10|1f|1e5.0|1;|1\r|1e5e5| 1");
  for (std::string text; std::getline(forms, text, '|');)
  {
    EXPECT_EQ(castByReader(text), castByLibrary(text)) << text;
  }
  for (const char* text : {"", "x", "1 ", "1:2"})
  {
    EXPECT_EQ(castByReader(text), "refused") << text;
  }
  const unsigned int seed = 7;
  std::mt19937 random(seed);
  for (int round = 0; round < 20000; ++round)
  {
    std::string text;
    for (auto length = random() % 12; length > 0; --length)
    {
      text += "0123456789012345678901234567899..-+eE"[random() % 37];
    }
    ASSERT_EQ(castByReader(text), castByLibrary(text)) << text << ", seed " << seed;
  }
}

std::string randomName(std::mt19937& random)
{
  std::string name;
  for (auto length = random() % 20; length > 0; --length)
  {
    const char c = static_cast<char>(random() % 256);
    name += std::string("(),:").find(c) == std::string::npos ? c : '_';
  }
  return name;
}

TEST(NewickReader, ReadsBackWhatWasWritten)
{
  for (unsigned int seed = 1; seed <= 50; ++seed)
  {
    SCOPED_TRACE(seed);
    const int size = static_cast<int>(2 + seed * 3);
    const orvex::test::RandomTree made(seed, size);
    std::mt19937 random(seed);
    for (int id = 1; id < size; ++id)
    {
      made.tree->setName(id, randomName(random));
      made.tree->setDistanceToParent(id, std::ldexp(random(), -int(random() % 60)));
    }
    EXPECT_EQ(write(parse(write(made.tree) + ";")), write(made.tree));
  }
}

TEST(NewickReader, SurvivesLargeAndOddInput)
{
  std::mt19937 random(11);
  std::string noise(10'000'000, '\0');
  for (char& c : noise)
  {
    c = static_cast<char>(random());
  }
  EXPECT_ANY_THROW(parse(noise)) << "a comma comes early";

  // Without colons, and so deep that no parenthesis is one too many, all of it is read.
  std::replace(noise.begin(), noise.end(), ':', ' ');
  const std::string text = std::string(10'000, '(') + noise;
  unsigned int nodes = 0;
  char last = 0;
  for (const char c : text)
  {
    const bool ends = c == ',' || c == ')';
    nodes += c == '(' || (ends && last != ')') ? 1 : 0;
    last = ends || c == '(' ? c : last;
  }
  EXPECT_EQ(parse(text)->getNumberOfNodes(), nodes);

  const std::string name(1'000'000, 'n');
  EXPECT_EQ(parse("(" + name + ",b)")->getName(1), name);
}

TEST(NewickReader, JoinsTheLinesOfAFile)
{
  const orvex::test::TemporaryFolder folder;
  const std::string file = folder.write("lines.nwk", "((long\nname\r\n,b\n)\n\nx,\n\nc);\n");
  EXPECT_EQ(write(NewickReader()(file)), "((longname\r,b)x,c)");
  EXPECT_EQ(write(NewickReader()(folder.write("no-end.nwk", "(a,\nb)"))), "(a,b)");
  EXPECT_EQ(write(NewickReader()(folder.write("empty.nwk", ""))), "none");
}

TEST(NewickReader, TellsWhyAFileCannotBeRead)
{
  const orvex::test::TemporaryFolder folder;
  for (const std::string& path : {folder.path("missing.nwk"), folder.path("")})
  {
    SCOPED_TRACE(path);
    EXPECT_THAT([&] { NewickReader()(path); },
                testing::ThrowsMessage<boost::filesystem::filesystem_error>(
                    testing::StartsWith("boost::filesystem::file_size")));
  }
  // A regular file that opens, but has nothing at its start to be read.
  EXPECT_THAT([] { NewickReader()("/proc/self/mem"); },
              testing::ThrowsMessage<std::runtime_error>("Could not read file."));

  // With no descriptor left not even root can open a file.
  const std::string file = folder.write("a.nwk", "(a,b);");
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &limit), 0);
  const rlimit none{0, limit.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  EXPECT_THAT([&] { NewickReader()(file); },
              testing::ThrowsMessage<std::runtime_error>("Could not open file."));
  ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
}

} // namespace
