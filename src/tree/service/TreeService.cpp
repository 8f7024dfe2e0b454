#include "tree/service/TreeService.h"

#include "foundation/network/Http.h"
#include "tree/model/OpeningStages.h"
#include "tree/model/TreeMemory.h"
#include "tree/service/JsonTree.h"
#include "tree/service/JsonTreeList.h"

#include <algorithm>
#include <new>
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

/// Writes to a string that can be moved out; that of a string stream can only be copied. Asks for
/// the memory before it takes it.
class StringBuffer : public std::streambuf
{
public:
  void reserve(std::size_t size)
  {
    // A small answer is there sooner than the memory is known.
    constexpr std::size_t leastToAsk = std::size_t(1) << 20;
    if (size >= leastToAsk)
    {
      requireMemory("To receive the answer", size);
    }
    text.reserve(size);
  }

  std::string text;

protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override
  {
    const auto size = static_cast<std::size_t>(count);
    if (size > text.capacity() - text.size()) // the server has not told the length
    {
      reserve(std::max(2 * text.capacity(), text.size() + size));
    }
    text.append(bytes, size);
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
  stream.exceptions(std::ios_base::badbit); // else it would keep those of the buffer for itself
  try
  {
    Kelmar::Network::Http(url).download(&stream, 0, stage,
                                        [&](std::size_t length) { buffer.reserve(length); });
  }
  catch (const std::bad_alloc&)
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
