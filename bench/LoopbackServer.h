#pragma once

#include <httplib.h>

#include <cstdlib>
#include <string>
#include <thread>

/// An HTTP server on a free port of the loopback address that answers one path with one body.
class LoopbackServer
{
public:
  LoopbackServer(const std::string& path, const std::string& body)
  {
    setenv("no_proxy", "*", 1); // requests must not go through a proxy
    _server.Get(path, [body](const httplib::Request&, httplib::Response& response)
                { response.set_content(body, "application/json"); });
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
