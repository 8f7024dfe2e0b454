#include "tree/Document.h"

#include "tree/TemporaryFolder.h"
#include "tree/Tree.h"
#include "tree/TreeDepth.h"

#include <boost/filesystem/exception.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <gmock/gmock.h>

#include <sys/resource.h>

#include <utility>

namespace
{

using orvex::Document;

bool isRefused(Document& document, const std::string& missing)
{
  try
  {
    document.read(missing);
    return false;
  }
  catch (const boost::filesystem::filesystem_error&)
  {
    return true;
  }
}

TEST(Document, ChoosesTheReaderByTheExtension)
{
  const orvex::tests::TemporaryFolder folder;
  const std::pair<const char*, bool> cases[] = {{"Tree.TRE", true},
                                                {"tree.Nwk", true},
                                                {"a.txt.tre", true},
                                                {".nwk", true},
                                                {"folder.txt/tree.nwk", true},
                                                {"folder.tre/tree", false},
                                                {"tree.txt", false},
                                                {"tree", false},
                                                {"tree.nwk.gz", false},
                                                {"tree.nwk ", false}};
  for (const auto& [name, reads] : cases)
  {
    SCOPED_TRACE(name);
    const boost::intrusive_ptr<Document> document(new Document);
    document->read(folder.write(name, "(a,b);"));
    EXPECT_EQ(document->getTree() != nullptr, reads);
    const std::string missing = folder.path(std::string("missing/") + name);
    EXPECT_EQ(isRefused(*document, missing), reads);
  }
}

TEST(Document, KeepsItsTreeUntilAnotherIsRead)
{
  const orvex::tests::TemporaryFolder folder;
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
  const orvex::tests::TemporaryFolder folder;
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
