#include "tree/Document.h"

#include "foundation/system/LargePages.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeDepth.h"
#include "tree/model/TreeMemory.h"
#include "tree/model/TreeSize.h"
#include "tree/newick/NewickFile.h"
#include "tree/newick/NewickReader.h"
#include "tree/service/Reader.h"

namespace orvex
{

void Document::read(const std::string& filename)
{
  if (!isNewickFile(filename))
  {
    return;
  }
  const Kelmar::System::LargePages pages; // for the tree, which is made now and not moved later
  NewickReader reader;
  _take(reader(filename));
}

void Document::loadFromHalvane(int id)
{
  const Kelmar::System::LargePages pages; // as in read
  Reader reader;
  _take(reader(id));
}

void Document::_take(boost::shared_ptr<Tree> tree)
{
  if (tree)
  {
    requireRoomForDepth(depthOfTree(*tree));
    requireMemory("To show the tree's " + std::to_string(tree->getNumberOfNodes()) + " nodes",
                  memoryToShow(sizeToShow(*tree)));
  }
  _tree = tree;
}

} // namespace orvex
