#include "foundation/network/Http.h"

#include "foundation/network/Curl.h"

namespace Kelmar::Network
{

Http::Http(const std::string& url) : _url(url) {}

void Http::download(std::ostream* output, unsigned int timeoutMilliseconds)
{
  Curl curl(_url, output, timeoutMilliseconds);
  curl.download();
}

} // namespace Kelmar::Network
