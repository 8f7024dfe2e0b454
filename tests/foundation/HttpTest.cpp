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

httplib::Server::Handler redirected(const std::string& url)
{
  return [=](const httplib::Request&, httplib::Response& response) { response.set_redirect(url); };
}

TEST(Http, GivesTheBodyOrTheReasonAndTheUrl)
{
  LoopbackServer server;
  std::string large(50'000'000, 'x');
  large.back() = '\0';
  server.answer("/empty", "");
  server.answer("/missing", "no such tree", 404);
  server.answer("/large", large);
  server.server.Get("/moved", redirected("/missing"));
  server.server.Get("/to-file", redirected("file:///etc/passwd"));
  server.server.Get("/slow", slowly(11));
  server.server.Get("/cut", slowly(100));
  EXPECT_EQ(download(server.url("/empty")), "");
  EXPECT_EQ(download(server.url("/moved")), "no such tree") << "whatever the status";
  EXPECT_TRUE(download(server.url("/large"), 60000) == large);
  EXPECT_EQ(download(server.url("/slow")), "a slow body") << "0 is no limit";
  for (const auto& [path, limit, reason] :
       {std::tuple("/slow", 150u, "timed out"), std::tuple("/cut", 0u, "89 bytes remaining"),
        std::tuple("/to-file", 0u, "file")})
  {
    EXPECT_THAT(
        download(server.url(path), limit),
        MatchesRegex(std::string("Error 3886626924: .*") + reason + ".*, URL = http.*" + path));
  }
  EXPECT_THAT(
      download("http://127.0.0.1:1/x"),
      MatchesRegex("Error 3886626924: Failed to connect to .*, URL = http://127.0.0.1:1/x"));
  EXPECT_EQ(errorOf([] { Http("http://127.0.0.1:1/").download(nullptr, 0); }),
            "Error 2742979881: stream is not valid.");
}

TEST(Curl, EndsTheTransferWhereTheBodyIsTooLong)
{
  LoopbackServer server;
  server.answer("/", std::string(1000, 'x'));
  std::ostringstream stream;
  EXPECT_EQ(errorOf([&] { Curl(server.url("/"), &stream, 0, 1000).download(); }), "");
  EXPECT_EQ(stream.str().size(), 1000u);
  EXPECT_EQ(errorOf([&] { Curl(server.url("/"), &stream, 0, 999).download(); }),
            "Error 3886626924: The answer is longer than 999 bytes, URL = " + server.url("/"));
}

} // namespace
