// Serves the Newick files of a folder as the tree service that the viewer asks.

#include "service/TreeFolder.h"
#include "service/TreeJson.h"
#include "tree/Tree.h"

#include <httplib.h>

#include <unistd.h>

#include <atomic>
#include <charconv>
#include <chrono>
#include <csignal>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>

namespace
{

using orvex::service::TreeFolder;

// Loopback only: no one else on the network is served.
const char* const address = "127.0.0.1";
const char* const usage = "usage: orvex-tree-service [--port 14444] FOLDER";

struct Options
{
  int port = 14444;
  std::string folder;
  bool help = false;
};

int parsePort(const std::string& text)
{
  int port = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, port);
  if (error != std::errc() || stop != end || port < 1 || port > 65535)
  {
    throw std::runtime_error("the port must be a number from 1 to 65535, not \"" + text + "\"");
  }
  return port;
}

Options parseOptions(const std::vector<std::string>& arguments)
{
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i)
  {
    const std::string& argument = arguments[i];
    if (argument == "--help" || argument == "-h")
    {
      options.help = true;
      return options;
    }
    if (argument == "--port")
    {
      options.port = parsePort(i + 1 < arguments.size() ? arguments[++i] : "");
    }
    else if (argument.empty() || argument[0] == '-' || !options.folder.empty())
    {
      throw std::runtime_error("unexpected argument \"" + argument + "\"; " + usage);
    }
    else
    {
      options.folder = argument;
    }
  }
  if (options.folder.empty())
  {
    throw std::runtime_error(std::string("no folder given; ") + usage);
  }
  return options;
}

void answer(httplib::Response& response, int status, const std::string& json)
{
  response.status = status;
  response.set_content(json, "application/json");
}

void answerError(httplib::Response& response, int status, const std::string& text)
{
  answer(response, status, "{\"error\":" + orvex::service::toJson(text) + "}");
}

void serve(const TreeFolder& folder, const httplib::Request& request, httplib::Response& response)
{
  const std::string prefix = "/trees/";
  if (request.method != "GET" && request.method != "HEAD")
  {
    return answerError(response, 405, "Only GET is known here.");
  }
  // The library would repeat the body for each of a thousand ranges.
  if (!request.ranges.empty())
  {
    return answerError(response, 416, "Ranges are not served.");
  }
  if (request.path == "/trees")
  {
    return answer(response, 200, folder.list());
  }
  if (request.path.compare(0, prefix.size(), prefix) != 0)
  {
    return answerError(response, 404, "Ask for /trees or /trees/ and an id.");
  }
  const auto tree = folder.tree(request.path.substr(prefix.size()));
  if (!tree)
  {
    return answerError(response, 404, "There is no tree with this id.");
  }
  answer(response, 200, orvex::service::toJson(*tree));
}

void listenOn(httplib::Server& server, int port)
{
  // The library's own options would let a second server share the port.
  server.set_socket_options(
      [](socket_t socket)
      {
        const int on = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
      });
  if (!server.bind_to_port(address, port))
  {
    throw std::runtime_error("port " + std::to_string(port) +
                             " can't be opened; perhaps it is in use");
  }
}

void configure(httplib::Server& server, const TreeFolder& folder)
{
  // A client that sends or takes nothing for so many seconds is hung up on.
  server.set_read_timeout(5);
  server.set_write_timeout(5);
  server.new_task_queue = [] { return new httplib::ThreadPool(32); };
  server.set_payload_max_length(std::size_t(64) * 1024);
  // One request for each connection, so that a body no one reads is not taken for a request.
  server.set_keep_alive_max_count(1);
  // Before the library's routes, which match regular expressions on whatever a client sends.
  server.set_pre_routing_handler(
      [&](const httplib::Request& request, httplib::Response& response)
      {
        try
        {
          serve(folder, request, response);
        }
        catch (const std::exception& e)
        {
          std::cerr << request.path << ": " + std::string(e.what()) + "\n" << std::flush;
          answerError(response, 500, "The tree can't be read.");
        }
        return httplib::Server::HandlerResponse::Handled;
      });
}

void stop(httplib::Server& server, const std::atomic<bool>& ended)
{
  // The server waits for requests at work; a client that sends byte by byte can't hold it for long.
  std::signal(SIGALRM, [](int) { _exit(0); });
  alarm(10);
  // Until it runs it can't be stopped.
  while (!server.is_running() && !ended)
  {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  server.stop();
}

/// Serves until SIGINT or SIGTERM.
void run(const Options& options)
{
  httplib::Server server;
  listenOn(server, options.port);
  const TreeFolder folder(options.folder, std::cerr);
  configure(server, folder);

  // Blocked in all threads to come; this one waits for them.
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);

  std::atomic<bool> ended{false};
  std::thread listener(
      [&]
      {
        server.listen_after_bind();
        ended = true;
        kill(getpid(), SIGTERM);
      });
  std::cout << "serving " << folder.size() << " trees at http://" << address << ":" << options.port
            << "/trees" << std::endl;
  int signal = 0;
  sigwait(&signals, &signal);
  const bool failed = ended;
  stop(server, ended);
  listener.join();
  if (failed)
  {
    throw std::runtime_error("listening failed");
  }
}

} // namespace

int main(int argc, char** argv)
{
  try
  {
    const Options options = parseOptions({argv + 1, argv + argc});
    if (options.help)
    {
      std::cout << usage << std::endl;
      return 0;
    }
    run(options);
    return 0;
  }
  catch (const std::exception& e)
  {
    std::cerr << "orvex-tree-service: " << e.what() << std::endl;
    return 1;
  }
}
