#include "foundation/Http.h"
#include "LoopbackServer.h"
#include "foundation/Curl.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

namespace
{

using Kelmar::Network::Curl;
using Kelmar::Network::Http;
using testing::MatchesRegex;

/// The body, or else the error.
std::string download(const std::string& url, unsigned int timeoutMilliseconds = 0)
{
  std::ostringstream stream;
  try
  {
    Http(url).download(&stream, timeoutMilliseconds);
  }
  catch (const std::runtime_error& e)
  {
    return e.what();
  }
  return stream.str();
}

/// Answers with pieces of a body, one each 100 ms.
httplib::Server::Handler slowly(std::size_t announcedLength, const std::vector<std::string>& pieces)
{
  return [=](const httplib::Request&, httplib::Response& response)
  {
    const auto send = [=](std::size_t, std::size_t, httplib::DataSink& sink)
    {
      for (const std::string& piece : pieces)
      {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        sink.write(piece.data(), piece.size());
      }
      return false; // hangs up
    };
    response.set_content_provider(announcedLength, "text/plain", send);
  };
}

TEST(Http, GivesTheBodyWhateverTheStatus)
{
  LoopbackServer server;
  std::string large(50'000'000, 'x');
  large[49'999'999] = '\0';
  server.answer("/empty", "");
  server.answer("/missing", "no such tree", 404);
  server.answer("/large", large);
  server.server.Get("/slow", slowly(11, {"a ", "slow ", "body"}));
  server.server.Get("/moved",
                    [](const httplib::Request&, httplib::Response& response)
                    {
                      response.set_redirect("/missing");
                      response.body = "not this";
                    });
  EXPECT_EQ(download(server.url("/empty")), "");
  EXPECT_EQ(download(server.url("/missing")), "no such tree");
  EXPECT_EQ(download(server.url("/moved")), "no such tree");
  EXPECT_EQ(download(server.url("/slow")), "a slow body") << "0 is no limit";
  EXPECT_TRUE(download(server.url("/large"), 60000) == large);
}

TEST(Http, NamesTheReasonAndTheUrlOfAFailure)
{
  LoopbackServer server;
  const std::string secret = testing::TempDir() + "/orvex-http-test";
  std::ofstream(secret) << "secret";
  server.server.Get("/to-file", [&](const httplib::Request&, httplib::Response& response)
                    { response.set_redirect("file://" + secret); });
  server.server.Get("/slow", slowly(11, {"a ", "slow ", "body"}));
  server.server.Get("/cut", slowly(100, {"only this"}));
  EXPECT_THAT(download(server.url("/to-file")),
              MatchesRegex("Error 3886626924: .*file.*, URL = http.*/to-file"));
  EXPECT_THAT(download(server.url("/slow"), 150),
              MatchesRegex("Error 3886626924: .*timed out.*, URL = http.*/slow"));
  EXPECT_THAT(download(server.url("/cut")),
              MatchesRegex("Error 3886626924: .*91 bytes remaining.*, URL = http.*/cut"));
  EXPECT_THAT(download("http://127.0.0.1:1/x"),
              MatchesRegex("Error 3886626924: Failed to connect to 127.0.0.1 port 1.*, "
                           "URL = http://127.0.0.1:1/x"));
  try
  {
    Http("http://127.0.0.1:1/").download(nullptr, 0);
    ADD_FAILURE() << "a stream is needed";
  }
  catch (const std::runtime_error& e)
  {
    EXPECT_STREQ(e.what(), "Error 2742979881: stream is not valid.") << "before the network";
  }
}

/// Takes not a single character.
class FullBuffer : public std::streambuf
{
};

TEST(Curl, EndsTheTransferWhereTheBodyCannotBeKept)
{
  LoopbackServer server;
  server.answer("/", std::string(1000, 'x'));
  std::ostringstream stream;
  Curl(server.url("/"), &stream, 0, 1000).download();
  EXPECT_EQ(stream.str().size(), 1000u);
  try
  {
    Curl(server.url("/"), &stream, 0, 999).download();
    ADD_FAILURE() << "a byte too many";
  }
  catch (const std::runtime_error& e)
  {
    EXPECT_EQ(e.what(),
              "Error 3886626924: The answer is longer than 999 bytes, URL = " + server.url("/"));
  }
  FullBuffer buffer;
  std::ostream full(&buffer);
  full.exceptions(std::ios_base::badbit);
  Curl throwing(server.url("/"), &full, 0);
  EXPECT_THROW(throwing.download(), std::ios_base::failure) << "through libcurl's frames";
}

} // namespace
