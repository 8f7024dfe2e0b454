#include "foundation/network/Http.h"

#include "foundation/network/Curl.h"
#include "support/Outcome.h"

#include <httplib.h>

#include <thread>

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
  const std::string url = "file://" + written(folder + "/large", large);
  EXPECT_TRUE(download(url, 60000) == large);
  EXPECT_EQ(download("file://" + written(folder + "/empty", "")), "");
  std::ostringstream stream;
  EXPECT_EQ(errorOf([&] { Curl(url, &stream, 0, large.size()).download(); }), "");
  EXPECT_EQ(errorOf([&] { Curl(url, &stream, 0, large.size() - 1).download(); }),
            "Error 3886626924: The answer is longer than 49999999 bytes, URL = " + url);
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
  httplib::Server server;
  const auto redirect = [&](const std::string& from, const std::string& to)
  {
    server.Get(from,
               [to](const httplib::Request&, httplib::Response& answer)
               {
                 answer.set_content("moved", "text/plain");
                 answer.set_redirect(to);
               });
  };
  redirect("/moved", "/here");
  redirect("/circle", "/circle");
  server.Get("/here", [](const httplib::Request&, httplib::Response& answer)
             { answer.set_content("found", "text/plain"); });
  const std::string url =
      "http://127.0.0.1:" + std::to_string(server.bind_to_any_port("127.0.0.1"));
  std::thread thread([&] { server.listen_after_bind(); });
  EXPECT_EQ(download(url + "/moved", 60000), "found");
  EXPECT_EQ(download(url + "/circle", 60000),
            "Error 3886626924: Maximum (30) redirects followed, URL = " + url + "/circle");
  server.stop();
  thread.join();
}
