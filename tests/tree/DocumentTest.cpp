#include "tree/Document.h"

#include "support/Outcome.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeMemory.h"
#include "tree/model/TreeSize.h"
#include "tree/newick/NewickReader.h"

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
  const std::string root = newFolder();
  std::filesystem::create_directory(root + "/proc");
  writeFile(root + "/proc/meminfo", "MemTotal: 2097152 kB\nMemAvailable: 1048576 kB\n"
                                    "SwapTotal: 0 kB\nSwapFree: 0 kB\n");
  const Kelmar::System::MemoryRoom room(root);
  EXPECT_EQ(errorOf([&] { orvex::requireMemory("This", std::size_t(3) << 29, room); }),
            "This takes 1.5 GiB of memory. 1.0 GiB are free of the 2.0 GiB that this machine has.");
  orvex::requireMemory("This", std::size_t(1) << 30, room);
}

TEST(Document, CountsForTheMemoryWhatTheRootReaches)
{
  const auto toShow = [](const std::string& text)
  { return orvex::memoryToShow(orvex::sizeToShow(*orvex::NewickReader().parseContents(text))); };
  const std::size_t two = toShow("(a,b);");
  const std::string many = "d" + std::string(500'000, ',');
  EXPECT_EQ(toShow("(d,e,f);(a,b);"), two) << "earlier trees are not shown";
  EXPECT_GT(toShow("(" + many + ");(a,b);"), two + 20'000'000) << "but laid out";
  EXPECT_LT(toShow("(" + many + ");(a,b);"), toShow("(" + many + "(a,b));"));
  EXPECT_GT(toShow("(" + std::string(1000, 'a') + ",b);"), two + 1000) << "long names";
}
