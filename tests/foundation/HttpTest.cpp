#include "foundation/Http.h"

#include "LoopbackServer.h"
#include "Outcome.h"
#include "foundation/Curl.h"

#include <gmock/gmock.h>

namespace
{

using Kelmar::Network::Curl;
using Kelmar::Network::Http;
using orvex::test::errorOf;

/// The body, or else the error.
std::string download(const std::string& url, unsigned int timeoutMilliseconds = 0)
{
  std::ostringstream stream;
  const std::string error = errorOf([&] { Http(url).download(&stream, timeoutMilliseconds); });
  return error.empty() ? stream.str() : error;
}

TEST(Http, GivesTheBodyOrTheReasonAndTheUrl)
{
  LoopbackServer server;
  std::string large(50'000'000, 'x');
  large.back() = '\0';
  server.answer("/empty", "");
  server.answer("/missing", "no such tree", 404);
  server.answer("/large", large);
  server.server.Get("/slow", [](auto&, auto&)
                    { std::this_thread::sleep_for(std::chrono::milliseconds(300)); });
  for (const auto& [from, to] :
       {std::pair("/moved", "/missing"), std::pair("/to-file", "file:///etc/passwd")})
  {
    server.server.Get(from, [to = to](auto&, auto& response) { response.set_redirect(to); });
  }
  EXPECT_EQ(download(server.url("/empty")), "");
  EXPECT_EQ(download(server.url("/moved")), "no such tree") << "whatever the status";
  EXPECT_TRUE(download(server.url("/large"), 60000) == large);
  for (const auto& [url, limit, reason] :
       {std::tuple(server.url("/slow"), 150u, ".*timed out.*"),
        std::tuple(server.url("/to-file"), 0u, ".*file.*"),
        std::tuple(std::string("http://127.0.0.1:1/x"), 0u, "Failed to connect to .*")})
  {
    EXPECT_THAT(download(url, limit), testing::MatchesRegex(std::string("Error 3886626924: ") +
                                                            reason + ", URL = " + url));
  }
  EXPECT_EQ(errorOf([] { Http("http://127.0.0.1:1/").download(nullptr, 0); }),
            "Error 2742979881: stream is not valid.");
  std::ostringstream stream;
  const std::string url = server.url("/missing");
  EXPECT_EQ(errorOf([&] { Curl(url, &stream, 0, 12).download(); }), "");
  EXPECT_EQ(stream.str(), "no such tree");
  EXPECT_EQ(errorOf([&] { Curl(url, &stream, 0, 11).download(); }),
            "Error 3886626924: The answer is longer than 11 bytes, URL = " + url);
}

} // namespace
