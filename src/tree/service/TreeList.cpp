#include "tree/service/TreeList.h"

#include "tree/service/TreeService.h"

namespace orvex
{

void downloadTreeList(std::vector<boost::shared_ptr<TreeData>>& trees)
{
  downloadTreeListFrom(treeServiceUrl, trees);
}

} // namespace orvex
