// Any bytes give a tree, no tree, or one of the reader's documented exceptions.
#include "Require.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"

#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <algorithm>
#include <stdexcept>

namespace
{

// Each node is the child of one other node at most, and a child has a greater id than its parent.
void checkRelations(orvex::Tree& tree)
{
  std::vector<bool> isChild(tree.getNumberOfNodes());
  unsigned int leaves = 0;
  for (int id = 0; id < static_cast<int>(isChild.size()); ++id)
  {
    leaves += tree.isLeaf(id);
    for (unsigned int i = 0; i < tree.getNumChildren(id); ++i)
    {
      const int child = tree.getChild(id, i);
      require(child > id && child < static_cast<int>(isChild.size()), "a child is newer");
      require(!isChild[static_cast<std::size_t>(child)], "a node has one parent");
      isChild[static_cast<std::size_t>(child)] = true;
    }
  }
  require(leaves == tree.getNumberOfLeafNodes(), "leaves are the nodes without children");
  require(!isChild[static_cast<std::size_t>(tree.getRootNodeId())], "the root has no parent");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
  const std::string text(reinterpret_cast<const char*>(data), size);
  try
  {
    const boost::shared_ptr<orvex::Tree> tree = orvex::NewickReader().parseContents(text);
    require(bool(tree) == (text.find('(') != std::string::npos),
            "an opening parenthesis is a tree");
    if (tree)
    {
      checkRelations(*tree);
    }
  }
  catch (const std::runtime_error&)
  {
  }
  catch (const boost::bad_lexical_cast&)
  {
  }
  return 0;
}
