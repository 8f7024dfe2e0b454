#pragma once

#include <httplib.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <thread>

/// An HTTP server on a free port of the loopback address; it ends with the object.
class LoopbackServer
{
public:
  /// \param define  says what the server answers, before it runs
  explicit LoopbackServer(const std::function<void(httplib::Server&)>& define)
  {
    setenv("no_proxy", "*", 1); // requests must not go through a proxy
    define(_server);
    _thread = std::thread([this] { _server.listen_after_bind(); });
    while (!_server.is_running()) // a server that does not run yet can't be stopped
    {
      std::this_thread::yield();
    }
  }
  ~LoopbackServer()
  {
    _server.stop();
    _thread.join();
  }

  std::string url() const { return "http://127.0.0.1:" + std::to_string(_port); }

private:
  httplib::Server _server;
  const int _port = _server.bind_to_any_port("127.0.0.1");
  std::thread _thread;
};

/// An answer with a body, for Server::Get.
inline httplib::Server::Handler answerWith(const std::string& body, const char* type)
{
  return [body, type](const httplib::Request&, httplib::Response& response)
  { response.set_content(body, type); };
}
