#include "foundation/network/Http.h"

#include "foundation/network/Curl.h"

namespace Kelmar::Network
{

Http::Http(const std::string& url) : _url(url) {}

void Http::download(std::ostream* output, unsigned int timeoutMilliseconds,
                    const Progress::Stage* stage,
                    const std::function<void(std::size_t)>& lengthTold)
{
  Curl curl(_url, output, timeoutMilliseconds);
  curl.reportAs(stage);
  curl.tellLength(lengthTold);
  curl.download();
}

} // namespace Kelmar::Network
