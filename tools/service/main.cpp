// A tree service for the viewer: serves the Newick files of a folder.

#include "service/TreeFolder.h"
#include "service/TreeJson.h"
#include "terminal/Options.h"
#include "terminal/Program.h"
#include "tree/model/Tree.h"

#include <boost/algorithm/string/predicate.hpp>

#include <httplib.h>

#include <getopt.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

namespace
{

using orvex::service::TreeFolder;

// The loopback address: other machines of the network can't connect.
const char* const address = "127.0.0.1";
const char* const help = R"(Usage: orvex-tree-service [options] FOLDER
Serves the Newick files of a folder as a tree service, to the viewers of this
machine only. Runs until SIGINT or SIGTERM.

Options:
  -h, --help  Shows this help.
  --port <N>  The TCP port to listen at, from 1 to 65535; 14444, where the
              viewer asks, if not given.

Arguments:
  FOLDER      The folder with the trees; only its .nwk and .tre files are served.
)";

struct Options
{
  int port = 14444;
  std::string folder;
};

int parsePort(const std::string& text)
{
  const auto port = orvex::terminal::wholeNumber(text, 1, 65535);
  if (!port)
  {
    throw std::runtime_error("the port must be a number from 1 to 65535, not \"" + text + "\"");
  }
  return static_cast<int>(*port);
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
  // The library would send the body again for each range of a request, for a thousand of them too.
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

/// Whether a request names this machine. A web page can give a name of its own the loopback
/// address, and the browser would let it read the answers; but the request then has that name.
bool isForThisMachine(const httplib::Request& request, int port)
{
  const std::string host = request.get_header_value("Host");
  const std::string suffix = ":" + std::to_string(port);
  for (const std::string name : {"localhost", address, "[::1]"})
  {
    // Clients leave out the port that is the usual one.
    if (boost::iequals(host, name + suffix) || (port == 80 && boost::iequals(host, name)))
    {
      return request.get_header_value_count("Host") == 1;
    }
  }
  return false;
}

void refuseHost(const httplib::Request& request, httplib::Response& response)
{
  static std::once_flag told;
  std::call_once(told,
                 [&]
                 {
                   std::cerr << "a request for the host " +
                                    orvex::service::toJson(request.get_header_value("Host")) +
                                    " is refused, as are all others that don't name this machine\n"
                             << std::flush;
                 });
  answerError(response, 421, "Only requests to this machine by its own name are answered.");
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

void configure(httplib::Server& server, const TreeFolder& folder, int port)
{
  // The connection is closed if a client sends or takes nothing for so many seconds.
  server.set_read_timeout(5);
  server.set_write_timeout(5);
  server.new_task_queue = [] { return new httplib::ThreadPool(32); };
  server.set_payload_max_length(std::size_t(64) * 1024);
  // One request for each connection: a body that is not read can't be taken for the next request.
  server.set_keep_alive_max_count(1);
  // Called before the library's own routes, which match regular expressions on any text of a
  // client.
  server.set_pre_routing_handler(
      [&folder, port](const httplib::Request& request, httplib::Response& response)
      {
        if (!isForThisMachine(request, port))
        {
          refuseHost(request, response);
          return httplib::Server::HandlerResponse::Handled;
        }
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
  // The server waits for the requests that are being answered. A client that sends byte by byte
  // can't delay this for long.
  std::signal(SIGALRM, [](int) { _exit(0); });
  alarm(10);
  // A server that does not run yet can't be stopped.
  while (!server.is_running() && !ended)
  {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  server.stop();
}

/// Serves until SIGINT or SIGTERM.
void serveFolder(const Options& options)
{
  httplib::Server server;
  listenOn(server, options.port);
  const TreeFolder folder(options.folder, std::cerr);
  configure(server, folder, options.port);

  // The signals are blocked in all threads that are started later; this thread waits for them.
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

int run(int argc, char** argv)
{
  const option known[] = {
      {"help", no_argument, nullptr, 'h'}, {"port", required_argument, nullptr, 'p'}, {}};
  Options options;
  opterr = 0; // it would say why it refuses an option in words of its own
  for (int found = 0; (found = getopt_long(argc, argv, ":h", known, nullptr)) != -1;)
  {
    switch (found)
    {
    case 'h':
      std::cout << help << std::flush;
      return EXIT_SUCCESS;
    case 'p':
      options.port = parsePort(optarg);
      break;
    default:
      throw std::invalid_argument(orvex::terminal::refusedOption(argv, found) +
                                  " See orvex-tree-service --help.");
    }
  }
  if (argc - optind != 1)
  {
    throw std::runtime_error("One FOLDER is needed. See orvex-tree-service --help.");
  }
  options.folder = argv[optind];
  serveFolder(options);
  return EXIT_SUCCESS;
}

// Where the library can't start its threads, no exception comes out of it.
[[noreturn]] void endInWords()
{
  std::cerr << "orvex-tree-service: there is not enough memory for the threads that answer\n"
            << std::flush;
  _exit(EXIT_FAILURE);
}

} // namespace

int main(int argc, char** argv)
{
  std::set_terminate(endInWords);
  return orvex::terminal::runProgram("orvex-tree-service", run, argc, argv);
}
