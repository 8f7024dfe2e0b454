#include "tree/service/Reader.h"

#include "tree/service/TreeService.h"

namespace orvex
{

boost::shared_ptr<Tree> Reader::operator()(int id)
{
  return downloadTreeFrom(treeServiceUrl, id);
}

} // namespace orvex
