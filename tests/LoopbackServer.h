#pragma once

#include <httplib.h>

#include <cstdlib>
#include <string>
#include <thread>

/// An HTTP server on a free port of the loopback address, for the length of a test.
struct LoopbackServer
{
  LoopbackServer() : port(server.bind_to_any_port("127.0.0.1"))
  {
    setenv("no_proxy", "*", 1); // a proxy of the machine that runs the tests has no part in them
    _thread = std::thread([this] { server.listen_after_bind(); });
    while (!server.is_running()) // the port is open, but what does not run can't be stopped
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
    return "http://127.0.0.1:" + std::to_string(port) + path;
  }
  /// From now on all that is asked for over HTTP is asked of a port of this machine, as of a proxy.
  /// So a test needs no port of a fixed number, which another program may have.
  static void standInForAllOthers(int port)
  {
    setenv("http_proxy", ("http://127.0.0.1:" + std::to_string(port)).c_str(), 1);
    setenv("no_proxy", "none.invalid", 1);
  }
  /// \param path  a regular expression; also what a proxy is asked for, with or without the host
  void answer(const std::string& path, const std::string& body, int status = 200)
  {
    server.Get("(?:http://[^/]*)?" + path,
               [=](const httplib::Request&, httplib::Response& response)
               {
                 response.status = status;
                 response.set_content(body, "application/json");
               });
  }

  httplib::Server server;
  const int port;

private:
  std::thread _thread;
};
