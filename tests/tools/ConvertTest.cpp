#include "convert/Conversion.h"

#include "support/Outcome.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"

using namespace orvex::convert;

static Conversion converted(const std::string& text, const Request& request = {})
{
  std::stringbuf bytes(text);
  Source source(bytes);
  return convert(source, request);
}

/// The tree that comes of a text, or else the error.
static std::string outcome(const std::string& text)
{
  Conversion conversion;
  const std::string error = errorOf([&] { conversion = converted(text); });
  if (!error.empty())
  {
    return error;
  }
  EXPECT_TRUE(orvex::NewickReader().parseContents(conversion.text)) << "the viewer reads it";
  return conversion.text.substr(0, conversion.text.size() - 2); // without ";" and line end
}

TEST(Convert, ReadsTheDialectsOfNewick)
{
  for (const TextCase& c :
       {TextCase{"plain", "((a:1,b:2e-3)x:3,c);", "((a:1,b:2e-3)x:3,c)"},
        TextCase{"a byte order mark, no end", "\xEF\xBB\xBF(a,b)", "(a,b)"},
        TextCase{"blanks and line ends", " ( a ,\r\n b : 1.5\r, Homo \n sapiens )\t;",
                 "(a,b:1.5,Homo sapiens)"},
        TextCase{"quotes", "('a (x):1, y''s',\"b \"\"\",O'Brien);", "(a _x__1_ y's,b \",O'Brien)"},
        TextCase{"comments in comments", "[&R] (a[x[y]\n]:[&rate=1]0.5[95],[;]b[&&NHX:S=1]);",
                 "(a:0.5,b)"},
        TextCase{"marks", "(a:0.1{3},b{F});", "(a:0.1,b)"},
        TextCase{"signs", "(a:+1,b:-2.5E+3)0.95:0;", "(a:1,b:-2.5E+3)0.95:0"},
        TextCase{"empty names", "(,(),);", "(,(),)"}, TextCase{"one leaf", "a:1;", "(a:1)"},
        TextCase{"UTF-8",
                 "(Schr\xC3\xB6"
                 "d\xC3\xA9,\xCE\xB1);",
                 "(Schrode,a)"},
        TextCase{"Latin-1",
                 "(Schr\xF6"
                 "d\xE9,b);",
                 "(Schrode,b)"},
        TextCase{"the first of several", "(a,b);\n(c,d);", "(a,b)"}})
  {
    EXPECT_EQ(outcome(c.text), c.expected) << c.what;
  }
}

TEST(Convert, ReadsTheTreesOfNexus)
{
  const std::string nexus =
      "\n#nexus [made by hand]\nBEGIN DATA;\n matrix 'it''s;' (x) ACGT;\nEND;\n";
  const std::string trees = "begin Trees;\n Translate 1 'Homo sapiens', 2 Pan_paniscus,\n 3 c;\n";
  for (const TextCase& c :
       {TextCase{"names for numbers", trees + "tree a = [&U] (1:1,(2,3)2)1;END;",
                 "(Homo sapiens:1,(Pan_paniscus,c)2)1"},
        TextCase{"the default", trees + "tree a=(1,2);\nUTREE * b = (3,1);tree *c=(2,1); end;",
                 "(c,Homo sapiens)"},
        TextCase{"numbers of taxa",
                 "begin taxa;dimensions ntax=2;taxlabels x 'y z';end;begin trees;tree t=(2,1);end;",
                 "(y z,x)"},
        TextCase{"taxa that are numbers",
                 "begin taxa;taxlabels 2 1;end;begin trees;tree t=(2,1);endblock;", "(2,1)"},
        TextCase{"a second block", trees + "end; begin trees; tree a=(1,2);end;", "(1,2)"},
        TextCase{"none", "begin data;end;", "there is no tree in it"},
        TextCase{"no name", trees + "tree = (1,2);",
                 "line 9, column 6: The name of a tree was expected"},
        TextCase{"no comma", "begin trees; translate 1,;",
                 "line 6, column 24: A short name and the name that it stands for were expected"}})
  {
    EXPECT_EQ(outcome(nexus + c.text), c.expected) << c.what;
  }
}

TEST(Convert, SaysWhereATextIsNoTree)
{
  for (const TextCase& c :
       {TextCase{"a comma", "a,b;", "line 1, column 2: ';' was expected, not ','"},
        TextCase{"cut off", "((a,b),\n",
                 "line 2, column 1: ',' or ')' was expected, not the end of the text"},
        TextCase{"closed too often", "(a,b)\r\n);", "line 2, column 1: ';' was expected, not ')'"},
        TextCase{"no length", "(a:x,b);",
                 "line 1, column 4: A branch length was expected, not \"x\""},
        TextCase{"two lengths", "(a:1:2);", "line 1, column 5: ',' or ')' was expected, not ':'"},
        TextCase{"two names", "('a'b);", "line 1, column 5: ',' or ')' was expected, not \"b\""},
        TextCase{"a quote", "(a,\n'b);", "line 2, column 1: the quote ' is never closed"},
        TextCase{"a comment", "(a[b[c]);", "line 1, column 3: the '[' is never closed"},
        TextCase{"nothing", " \n", "there is no tree in it"}})
  {
    EXPECT_EQ(outcome(c.text), c.expected) << c.what;
  }
}

TEST(Convert, TakesTheTreeThatIsAskedForAndSaysWhatItLeftOut)
{
  const std::string text = "#NEXUS begin trees; tree x=('a:','b,'); tree y=(c[1],d)[2]; end;";
  EXPECT_EQ(converted(text).report(), "left out 2 comments and 1 of 2 trees; changed 2 names");
  EXPECT_EQ(converted(text, {"y"}).text, "(c,d);\n");
  EXPECT_EQ(converted(text, {"2"}).text, "(c,d);\n");
  EXPECT_EQ(converted("(a,b);").report(), "");
  EXPECT_EQ(converted("(\xC3\xA9,b);", {"", true}).text, "(\xC3\xA9,b);\n");
  EXPECT_EQ(errorOf([&] { converted(text, {"z"}); }), "there is no tree \"z\" in it, of 2 trees");
  std::stringbuf bytes(text);
  Source source(bytes);
  std::ostringstream listed;
  list(source, listed);
  EXPECT_EQ(listed.str(), "1\t2\tx\n2\t2\ty\n");
}

TEST(Convert, ReadsAnyDepthAndBlocksOfAnySize)
{
  const std::size_t levels = 200'000; // more than one block, and than a stack of calls could hold
  const std::string deep = std::string(levels, '(') + "a" + std::string(levels, ')') + ";";
  EXPECT_EQ(converted(deep).text, deep + "\n");
}
