#include "tree/Document.h"

#include "tree/TemporaryFolder.h"
#include "tree/Tree.h"
#include "tree/TreeDepth.h"

#include <boost/filesystem/exception.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gmock/gmock.h>

#include <sys/resource.h>

#include <algorithm>

namespace
{

using orvex::Document;

TEST(Document, ChoosesTheReaderByTheExtension)
{
  const orvex::test::TemporaryFolder folder;
  for (const char* name : {"Tree.TRE", "tree.Nwk", "a.txt.tre", ".nwk", "folder.txt/tree.nwk"})
  {
    const boost::intrusive_ptr<Document> document(new Document);
    EXPECT_THROW(document->read(folder.path(name)), boost::filesystem::filesystem_error) << name;
    document->read(folder.write(name, "(a,b);"));
    EXPECT_NE(document->getTree(), nullptr) << name;
  }
  for (const char* name : {"tree.txt", "tree", "tree.nwk.gz", "tree.nwk ", "folder.tre/tree"})
  {
    const boost::intrusive_ptr<Document> document(new Document);
    EXPECT_NO_THROW(document->read(folder.path(name))) << name;
    document->read(folder.write(name, "(a,b);"));
    EXPECT_EQ(document->getTree(), nullptr) << name;
  }
}

TEST(Document, KeepsItsTreeUntilAnotherIsRead)
{
  const orvex::test::TemporaryFolder folder;
  const boost::intrusive_ptr<Document> document(new Document);
  document->read(folder.write("good.nwk", "(a,b);"));
  const boost::shared_ptr<orvex::Tree> first = document->getTree();
  ASSERT_NE(first, nullptr);

  EXPECT_THROW(document->read(folder.write("bad.nwk", "(a,b));")), std::runtime_error);
  EXPECT_NO_THROW(document->read(folder.path("missing.txt")));
  EXPECT_EQ(document->getTree(), first);

  document->read(folder.write("other.tre", "(c,d,e);"));
  EXPECT_EQ(document->getTree()->getNumberOfNodes(), 4u);
  EXPECT_EQ(first.use_count(), 1) << "the document let go of the earlier tree";
  document->read(folder.write("none.tre", "no tree"));
  EXPECT_EQ(document->getTree(), nullptr) << "a file without a tree is no failure";
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
  ASSERT_GE(most, few) << "asks for the limit as it is now";
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__)
  EXPECT_GE(most, 100'000u);
#endif

  document->read(folder.write("deep.nwk", ladder(most)));
  const boost::shared_ptr<orvex::Tree> deepest = document->getTree();
  ASSERT_NE(deepest, nullptr);
  EXPECT_EQ(deepest->findMaximumDepthToLeaf(0), int(most));
  EXPECT_EQ(deepest->getNumAllChildren(0), int(2 * most + 1));

  const std::string message = "The tree is " + std::to_string(most + 1) + " levels deep. At most " +
                              std::to_string(most) + " levels can be shown.";
  const std::string deeper = folder.write("deeper.nwk", ladder(most + 1));
  EXPECT_THAT([&] { document->read(deeper); }, testing::ThrowsMessage<std::runtime_error>(message));
  EXPECT_EQ(document->getTree(), deepest);
  ASSERT_EQ(setrlimit(RLIMIT_STACK, &before), 0);
}

} // namespace
