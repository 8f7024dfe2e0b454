#pragma once

#include <boost/core/noncopyable.hpp>

#include <httplib.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

/// An HTTP server on the loopback address, for the length of a test: on a given port, for which it
/// waits up to a minute, or on a free one.
class LoopbackServer : private boost::noncopyable
{
public:
  explicit LoopbackServer(int port = 0)
  {
    // The library's own options would let two servers share a port.
    server.set_socket_options(
        [](socket_t socket)
        {
          const int on = 1;
          setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        });
    for (int i = 0; port != 0 && i < 600 && !server.bind_to_port("127.0.0.1", port); ++i)
    {
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    _port = port != 0 ? port : server.bind_to_any_port("127.0.0.1");
    // A proxy of the machine that runs the tests has no part in them.
    setenv("no_proxy", "*", 1);
    _thread = std::thread([this] { server.listen_after_bind(); });
    // The port is open already; but what does not run yet can't be stopped.
    while (!server.is_running())
    {
      std::this_thread::yield();
    }
  }
  ~LoopbackServer()
  {
    server.stop();
    _thread.join();
  }

  std::string url(const std::string& path = "") const
  {
    return "http://127.0.0.1:" + std::to_string(_port) + path;
  }
  void answer(const std::string& path, const std::string& body, int status = 200)
  {
    server.Get(path,
               [=](const httplib::Request&, httplib::Response& response)
               {
                 response.status = status;
                 response.set_content(body, "application/json");
               });
  }

  httplib::Server server;

private:
  int _port = 0;
  std::thread _thread;
};
