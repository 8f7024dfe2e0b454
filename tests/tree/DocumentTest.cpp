#include "tree/Document.h"

#include "Outcome.h"
#include "tree/TemporaryFolder.h"
#include "tree/Tree.h"
#include "tree/TreeDepth.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gmock/gmock.h>

#include <sys/resource.h>

namespace
{

using orvex::Document;
using orvex::test::errorOf;

TEST(Document, ReadsByTheExtensionAndKeepsItsTreeUntilAnotherIsRead)
{
  const orvex::test::TemporaryFolder folder;
  for (const std::string name : {"Tree.TRE", "tree.Nwk", "a.txt.tre", ".nwk", "folder.txt/a.nwk"})
  {
    const boost::intrusive_ptr<Document> document(new Document);
    EXPECT_NE(errorOf([&] { document->read(folder.path(name)); }), "") << name;
    document->read(folder.write(name, "(a,b);"));
    const boost::shared_ptr<orvex::Tree> first = document->getTree();
    ASSERT_NE(first, nullptr) << name;
    EXPECT_NE(errorOf([&] { document->read(folder.write(name, "(a,b))")); }), "");
    for (const std::string other : {"a.txt", "tree", "tree.nwk.gz", "tree.nwk ", "folder.tre/tree"})
    {
      document->read(folder.write(other, "(a,b,c);"));
      document->read(folder.path("missing.txt"));
      EXPECT_EQ(document->getTree(), first) << other;
    }
    document->read(folder.write(name, "no tree"));
    EXPECT_EQ(document->getTree(), nullptr) << "a file without a tree is no failure";
    EXPECT_EQ(first.use_count(), 1);
  }
}

std::string ladder(unsigned int levels)
{
  std::string text;
  for (unsigned int i = 0; i < levels; ++i)
  {
    text += "(a,";
  }
  return text + "b" + std::string(levels, ')') + ";";
}

TEST(Document, RefusesATreeThatWouldOverflowTheStack)
{
  const orvex::test::TemporaryFolder folder;
  const boost::intrusive_ptr<Document> document(new Document);
  const unsigned int few = orvex::maximumTreeDepth();
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_STACK, &before), 0);
  const rlimit large{std::min(before.rlim_max, rlim_t(512) << 20), before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_STACK, &large), 0); // as the program does
  const unsigned int most = orvex::maximumTreeDepth();
  ASSERT_GT(most, few) << "asks for the limit as it is now";
  document->read(folder.write("deep.nwk", ladder(most)));
  const boost::shared_ptr<orvex::Tree> deepest = document->getTree();
  EXPECT_EQ(deepest->findMaximumDepthToLeaf(0), int(most));
  EXPECT_EQ(deepest->getNumAllChildren(0), int(2 * most + 1));
  const std::string deeper = folder.write("deeper.nwk", ladder(most + 1));
  EXPECT_EQ(errorOf([&] { document->read(deeper); }),
            "The tree is " + std::to_string(most + 1) + " levels deep. At most " +
                std::to_string(most) + " levels can be shown.");
  EXPECT_EQ(document->getTree(), deepest);
  ASSERT_EQ(setrlimit(RLIMIT_STACK, &before), 0);
}

} // namespace
