#include "tree/Document.h"

#include "support/Outcome.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeMemory.h"

TEST(Document, ReadsByTheExtensionAndKeepsItsTreeUntilAnotherIsRead)
{
  const std::string folder = newFolder() + "/";
  for (const std::string name : {"Tree.TRE", "tree.Nwk", "a.txt.tre", ".nwk"})
  {
    const boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
    EXPECT_NE(errorOf([&] { document->read(folder + name); }), "") << name;
    document->read(writeFile(folder + name, "(a,b);"));
    const boost::shared_ptr<orvex::Tree> first = document->getTree();
    ASSERT_NE(first, nullptr) << name;
    EXPECT_NE(errorOf([&] { document->read(writeFile(folder + name, "(a,b))")); }), "");
    for (const std::string other : {"a.txt", "tree", "tree.nwk.gz", "tree.nwk ", "folder.tre/tree"})
    {
      document->read(writeFile(folder + other, "(a,b,c);"));
      EXPECT_EQ(document->getTree(), first) << other;
    }
    document->read(writeFile(folder + name, "no tree"));
    EXPECT_EQ(document->getTree(), nullptr) << "a file without a tree is no failure";
    EXPECT_EQ(first.use_count(), 1);
  }
}

TEST(Document, IsRefusedWhereTheMachineCantHoldIt)
{
  EXPECT_EQ(errorOf([] { orvex::requireMemory(19'999'999, std::size_t(3) << 29); }),
            "To show the tree's 19999999 nodes takes 5.4 GiB of memory. 1.5 GiB are free.");
  orvex::requireMemory(19'999'999, std::size_t(1) << 40);
  orvex::requireMemory(0, 0);
  EXPECT_GT(orvex::availableMemory(), std::size_t(1) << 26) << "this machine runs the tests";
  EXPECT_LT(orvex::availableMemory(), std::size_t(1) << 50);
}
