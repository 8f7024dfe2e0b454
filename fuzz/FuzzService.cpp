// Any body of the tree service gives a list, a tree, or one of the documented exceptions.
#include "Require.h"
#include "tree/model/Tree.h"
#include "tree/service/JsonTree.h"
#include "tree/service/JsonTreeList.h"
#include "tree/service/TreeData.h"

#include <boost/variant/get.hpp>

#include <stdexcept>

namespace
{

template <class Read>
void tryReading(Read read)
{
  try
  {
    read();
  }
  catch (const std::runtime_error& e)
  {
    require(*e.what() != '\0', "a refusal has a reason");
  }
  catch (const boost::bad_get&)
  {
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
  const std::string body(reinterpret_cast<const char*>(data), size);
  tryReading(
      [&body]
      {
        std::vector<boost::shared_ptr<orvex::TreeData>> rows;
        orvex::readTreeList(body, "http://localhost/trees", rows);
      });
  tryReading(
      [&body]
      {
        const auto tree = orvex::readTree(body, "http://localhost/trees/1");
        const int root = tree->getRootNodeId();
        require(root == 0, "the root comes first");
        require(tree->getNumAllChildren(root) == static_cast<int>(tree->getNumberOfNodes()),
                "the root reaches every node");
      });
  return 0;
}
