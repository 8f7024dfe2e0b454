#include "tree/Document.h"

#include "foundation/system/LargePages.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeMemory.h"
#include "tree/newick/NewickReader.h"
#include "tree/service/Reader.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/filesystem/convenience.hpp>
#include <boost/filesystem/operations.hpp>

namespace orvex
{

void Document::read(const std::string& filename)
{
  const std::string extension =
      boost::algorithm::to_lower_copy(boost::filesystem::extension(filename));
  if (extension != ".tre" && extension != ".nwk")
  {
    return;
  }
  const Kelmar::System::LargePages pages;
  NewickReader reader;
  const boost::shared_ptr<Tree> tree = reader(filename);
  if (tree)
  {
    requireMemory(tree->getNumberOfNodes());
  }
  _tree = tree;
}

void Document::loadFromHalvane(int id)
{
  const Kelmar::System::LargePages pages;
  Reader reader;
  _tree = reader(id);
}

} // namespace orvex
