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
using testing::MatchesRegex;

/// The body, or else the error.
std::string download(const std::string& url, unsigned int timeoutMilliseconds = 0)
{
  std::ostringstream stream;
  const std::string error = errorOf([&] { Http(url).download(&stream, timeoutMilliseconds); });
  return error.empty() ? stream.str() : error;
}

/// Sends three pieces, one each 100 ms, and hangs up.
httplib::Server::Handler slowly(std::size_t announcedLength)
{
  return [=](const httplib::Request&, httplib::Response& response)
  {
    const auto send = [](std::size_t, std::size_t, httplib::DataSink& sink)
    {
      for (const std::string piece : {"a ", "slow ", "body"})
      {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        sink.write(piece.data(), piece.size());
      }
      return false;
    };
    response.set_content_provider(announcedLength, "text/plain", send);
  };
}

TEST(Http, GivesTheBodyOrTheReasonAndTheUrl)
{
  LoopbackServer server;
  std::string large(50'000'000, 'x');
  large.back() = '\0';
  server.answer("/empty", "");
  server.answer("/missing", "no such tree", 404);
  server.answer("/large", large);
  for (const auto& [from, to] :
       {std::pair("/moved", "/missing"), std::pair("/to-file", "file:///etc/passwd")})
  {
    server.server.Get(from, [to = to](auto&, auto& response) { response.set_redirect(to); });
  }
  server.server.Get("/slow", slowly(11));
  server.server.Get("/cut", slowly(100));
  EXPECT_EQ(download(server.url("/empty")), "");
  EXPECT_EQ(download(server.url("/moved")), "no such tree") << "whatever the status";
  EXPECT_TRUE(download(server.url("/large"), 60000) == large);
  EXPECT_EQ(download(server.url("/slow")), "a slow body") << "0 is no limit";
  for (const auto& [url, limit, reason] :
       {std::tuple(server.url("/slow"), 150u, ".*timed out.*"),
        std::tuple(server.url("/cut"), 0u, ".*89 bytes remaining.*"),
        std::tuple(server.url("/to-file"), 0u, ".*file.*"),
        std::tuple(std::string("http://127.0.0.1:1/x"), 0u, "Failed to connect to .*")})
  {
    EXPECT_THAT(download(url, limit),
                MatchesRegex(std::string("Error 3886626924: ") + reason + ", URL = http.*"))
        << url;
  }
  EXPECT_EQ(errorOf([] { Http("http://127.0.0.1:1/").download(nullptr, 0); }),
            "Error 2742979881: stream is not valid.");
  std::ostringstream stream;
  EXPECT_EQ(errorOf([&] { Curl(server.url("/missing"), &stream, 0, 12).download(); }), "");
  EXPECT_EQ(stream.str(), "no such tree");
  EXPECT_EQ(errorOf([&] { Curl(server.url("/missing"), &stream, 0, 11).download(); }),
            "Error 3886626924: The answer is longer than 11 bytes, URL = " +
                server.url("/missing"));
}

} // namespace
