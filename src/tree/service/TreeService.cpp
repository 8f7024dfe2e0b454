#include "tree/service/TreeService.h"

#include "foundation/network/Http.h"
#include "tree/model/OpeningStages.h"
#include "tree/service/JsonTree.h"
#include "tree/service/JsonTreeList.h"

#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <utility>

namespace orvex
{

namespace Detail
{
namespace
{

/// Writes to a string that can be moved out; that of a string stream can only be copied.
class StringBuffer : public std::streambuf
{
public:
  std::string text;

protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override
  {
    text.append(bytes, static_cast<std::size_t>(count));
    return count;
  }
};

} // namespace
} // namespace Detail

const char* const treeServiceUrl = ORVEX_TREE_SERVICE_URL;

std::string downloadText(const std::string& url, const Kelmar::Progress::Stage* stage)
{
  Detail::StringBuffer buffer;
  std::ostream stream(&buffer);
  Kelmar::Network::Http http(url);
  http.download(&stream, 0, stage);
  // A stream without memory discards its input; only its state tells so.
  if (!stream)
  {
    throw std::runtime_error("There is not enough memory for the answer of " + url);
  }
  return std::move(buffer.text);
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
  return readTree(downloadText(url.str(), &OpeningStages::receiving), url.str());
}

} // namespace orvex
