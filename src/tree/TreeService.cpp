#include "tree/TreeService.h"

#include "foundation/network/Http.h"
#include "tree/JsonTree.h"
#include "tree/JsonTreeList.h"

#include <sstream>
#include <stdexcept>

namespace orvex
{

const char* const treeServiceUrl = ORVEX_TREE_SERVICE_URL;

std::string downloadText(const std::string& url)
{
  std::ostringstream stream;
  Kelmar::Network::Http http(url);
  http.download(&stream, 0);
  // A string stream without memory discards its input; only its state tells so.
  if (!stream)
  {
    throw std::runtime_error("There is not enough memory for the answer of " + url);
  }
  return stream.str();
}

void downloadTreeListFrom(const std::string& service,
                          std::vector<boost::shared_ptr<TreeData>>& trees)
{
  const std::string url = service + "/trees";
  readTreeList(downloadText(url), url, trees);
}

boost::shared_ptr<Tree> downloadTreeFrom(const std::string& service, int id)
{
  std::ostringstream url;
  url << service << "/trees/" << id;
  return readTree(downloadText(url.str()), url.str());
}

} // namespace orvex
