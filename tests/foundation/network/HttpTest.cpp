#include "foundation/network/Http.h"

#include "foundation/network/Curl.h"
#include "support/LoopbackServer.h"
#include "support/Outcome.h"

using namespace Kelmar::Network;

/// The body, or else the error.
static std::string download(const std::string& url, unsigned int timeoutMilliseconds = 0)
{
  std::ostringstream stream;
  const std::string error = errorOf([&] { Http(url).download(&stream, timeoutMilliseconds); });
  return error.empty() ? stream.str() : error;
}

// The tests in e2e/ ask a real tree service.
TEST(Http, DeliversAWholeBodyUpToItsLimit)
{
  const std::string folder = newFolder();
  std::string large(50'000'000, 'x');
  large.back() = '\0';
  const std::string url = "file://" + writeFile(folder + "/large", large);
  EXPECT_TRUE(download(url, 60000) == large);
  EXPECT_EQ(download("file://" + writeFile(folder + "/empty", "")), "");
  std::ostringstream stream;
  EXPECT_EQ(errorOf([&] { Curl(url, &stream, 0, large.size()).download(); }), "");
  EXPECT_EQ(errorOf([&] { Curl(url, &stream, 0, large.size() - 1).download(); }),
            "Error 3886626924: The answer is longer than 49999999 bytes, URL = " + url);
  const auto refuse = [](std::size_t length) { throw std::range_error(std::to_string(length)); };
  EXPECT_EQ(errorOf([&] { Http(url).download(&(stream = {}), 0, nullptr, refuse); }), "50000000");
  EXPECT_EQ(stream.str(), "") << "who hears the length can refuse the body";
}

TEST(Http, NamesTheReasonAndTheUrlOfAFailure)
{
  EXPECT_EQ(errorOf([] { Http("url").download(nullptr, 0); }),
            "Error 2742979881: stream is not valid.");
  setenv("no_proxy", "*", 1);
  httplib::Server silent;
  const int port = silent.bind_to_any_port("127.0.0.1");
  for (const auto& [server, milliseconds, reason] :
       {std::tuple(port, 150u, "timed out"), std::tuple(1, 60000u, "connect to")})
  {
    EXPECT_THAT(download("http://127.0.0.1:" + std::to_string(server) + "/x", milliseconds),
                testing::MatchesRegex(std::string("Error 3886626924: .*") + reason +
                                      ".*, URL = http://127.0.0.1:[0-9]+/x"));
  }
}

TEST(Http, FollowsThirtyRedirectsAtMostAndGivesTheLastBodyOnly)
{
  const auto redirectTo = [](const std::string& target)
  {
    return [target](const httplib::Request&, httplib::Response& response)
    {
      response.set_content("moved", "text/plain");
      response.set_redirect(target);
    };
  };
  const LoopbackServer server(
      [&](httplib::Server& paths)
      {
        paths.Get("/moved", redirectTo("/here"));
        paths.Get("/circle", redirectTo("/circle"));
        paths.Get("/here", answerWith("found", "text/plain"));
      });
  EXPECT_EQ(download(server.url() + "/moved", 60000), "found");
  EXPECT_EQ(download(server.url() + "/circle", 60000),
            "Error 3886626924: Maximum (30) redirects followed, URL = " + server.url() + "/circle");
}
