#include "foundation/Http.h"
#include "LoopbackServer.h"
#include "foundation/Curl.h"

#include <gmock/gmock.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>

namespace
{

using Kelmar::Network::Curl;
using Kelmar::Network::Http;

std::string download(const std::string& url, unsigned int timeoutMilliseconds = 0)
{
  std::ostringstream stream;
  Http(url).download(&stream, timeoutMilliseconds);
  return stream.str();
}

template <class Function>
std::string errorOf(Function function)
{
  try
  {
    function();
  }
  catch (const std::runtime_error& e)
  {
    return e.what();
  }
  return "no error";
}

std::string transferError(const std::string& url, unsigned int timeoutMilliseconds = 0)
{
  return errorOf([&] { download(url, timeoutMilliseconds); });
}

/// Listens on a free port and sends the same bytes to the first who connects, then hangs up.
class RawServer
{
public:
  explicit RawServer(const std::string& bytes) : _listener(socket(AF_INET, SOCK_STREAM, 0))
  {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    EXPECT_EQ(bind(_listener, plain, size), 0);
    EXPECT_EQ(listen(_listener, 1), 0);
    EXPECT_EQ(getsockname(_listener, plain, &size), 0);
    _port = ntohs(address.sin_port);
    _thread = std::thread(
        [this, bytes]
        {
          const int client = accept(_listener, nullptr, nullptr);
          char request[4096];
          EXPECT_GT(recv(client, request, sizeof request, 0), 0);
          EXPECT_EQ(send(client, bytes.data(), bytes.size(), 0), ssize_t(bytes.size()));
          close(client);
        });
  }
  ~RawServer()
  {
    shutdown(_listener, SHUT_RDWR);
    _thread.join();
    close(_listener);
  }
  std::string url() const { return "http://127.0.0.1:" + std::to_string(_port) + "/"; }

private:
  int _listener;
  int _port;
  std::thread _thread;
};

TEST(Http, GivesTheBodyWhateverTheStatus)
{
  LoopbackServer server;
  std::string large(50'000'000, 'x');
  large[49'999'999] = '\0';
  server.answer("/empty", "");
  server.answer("/missing", "no such tree", 404);
  server.answer("/large", large);
  server.server.Get("/moved",
                    [](const httplib::Request&, httplib::Response& response)
                    {
                      response.set_redirect("/missing");
                      response.body = "not this";
                    });
  server.server.Get("/slow",
                    [](const httplib::Request&, httplib::Response& response)
                    {
                      response.set_chunked_content_provider(
                          "text/plain",
                          [](size_t, httplib::DataSink& sink)
                          {
                            for (const char* piece : {"a ", "slow ", "body"})
                            {
                              std::this_thread::sleep_for(std::chrono::milliseconds(100));
                              sink.write(piece, std::strlen(piece));
                            }
                            sink.done();
                            return true;
                          });
                    });
  EXPECT_EQ(download(server.url("/empty")), "");
  EXPECT_EQ(download(server.url("/missing")), "no such tree");
  EXPECT_EQ(download(server.url("/moved")), "no such tree");
  EXPECT_EQ(download(server.url("/slow")), "a slow body") << "0 is no limit";
  EXPECT_TRUE(download(server.url("/large"), 60000) == large);
  EXPECT_THAT(transferError(server.url("/slow"), 150),
              testing::MatchesRegex("Error 3886626924: .*timed out.*, URL = http.*/slow"));
}

TEST(Http, NamesTheReasonAndTheUrlOfAFailure)
{
  LoopbackServer server;
  const std::string secret = testing::TempDir() + "/orvex-http-test";
  std::ofstream(secret) << "secret";
  server.server.Get("/to-file", [&](const httplib::Request&, httplib::Response& response)
                    { response.set_redirect("file://" + secret); });
  const RawServer broken("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this");
  EXPECT_THAT(transferError(server.url("/to-file")),
              testing::MatchesRegex("Error 3886626924: .*file.*, URL = http.*/to-file"));
  EXPECT_THAT(
      transferError(broken.url()),
      testing::MatchesRegex("Error 3886626924: .*91 bytes remaining.*, URL = " + broken.url()));
  EXPECT_THAT(transferError("http://127.0.0.1:1/x"),
              testing::MatchesRegex("Error 3886626924: Failed to connect to 127.0.0.1 port 1.*, "
                                    "URL = http://127.0.0.1:1/x"));
  EXPECT_THAT(transferError(""), testing::MatchesRegex("Error 3886626924: .+, URL = "));
}

TEST(Http, RefusesAMissingStreamBeforeAnyNetworkUse)
{
  EXPECT_EQ(errorOf([] { Http("http://127.0.0.1:1/").download(nullptr, 0); }),
            "Error 2742979881: stream is not valid.");
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
  Curl fits(server.url("/"), &stream, 0, 1000);
  fits.download();
  EXPECT_EQ(stream.str().size(), 1000u);
  Curl tooLong(server.url("/"), &stream, 0, 999);
  EXPECT_EQ(errorOf([&] { tooLong.download(); }),
            "Error 3886626924: The answer is longer than 999 bytes, URL = " + server.url("/"));

  FullBuffer buffer;
  std::ostream full(&buffer);
  full.exceptions(std::ios_base::badbit);
  Curl throwing(server.url("/"), &full, 0);
  EXPECT_THROW(throwing.download(), std::ios_base::failure) << "through libcurl's frames";
}

} // namespace
