#include "tree/TreeList.h"

#include "tree/TreeService.h"

namespace orvex
{

void downloadTreeList(std::vector<boost::shared_ptr<TreeData>>& trees)
{
  downloadTreeListFrom(treeServiceUrl, trees);
}

} // namespace orvex
