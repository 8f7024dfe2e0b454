// Writes a generated tree in Newick form to the standard output.

#include "generate/TreeGenerator.h"
#include "terminal/Options.h"
#include "terminal/Program.h"
#include "terminal/TerminalProgress.h"

#include <getopt.h>
#include <unistd.h>

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>

namespace
{

const char* const help =
    R"(Usage: orvex-generate [options] SHAPE LEAVES
Generates a tree and writes it in Newick to the standard output. The same
arguments give the same tree on every machine.

Options:
  -h, --help  Shows this help.
  --seed <N>  Another tree for another whole number, from 0 to 4294967295;
              1 if not given.
  --lengths   Gives each branch a length between 0 and 1; no lengths if not
              given.

Arguments:
  SHAPE       random    a random leaf divides in two, again and again
              balanced  a level is full before the next one begins
              ladder    on every level one leaf beside all the rest
              star      all leaves are children of the root
              polytomy  a random leaf divides into 2 to 50, again and again
  LEAVES      How many leaves the tree has, from 1 to 100000000.
)";

unsigned int toNumber(const std::string& text)
{
  const auto number =
      orvex::terminal::wholeNumber(text, 0, std::numeric_limits<std::uint32_t>::max());
  if (!number)
  {
    throw std::invalid_argument("'" + text + "' is no whole number, or too large");
  }
  return *number;
}

struct Request
{
  std::string shape;
  unsigned int leaves = 0;
  unsigned int seed = 1;
  bool lengths = false;
};

void generate(const Request& request)
{
  std::optional<orvex::terminal::TerminalProgress> progress;
  if (isatty(STDOUT_FILENO) == 0) // else it would stand within the tree
  {
    progress.emplace();
  }
  orvex::generate::TreeGenerator generator(request.seed);
  generator.write(std::cout, orvex::generate::shapeFromName(request.shape), request.leaves,
                  request.lengths);
  std::cout << '\n' << std::flush;
  if (!std::cout)
  {
    throw std::runtime_error("the tree could not be written");
  }
}

int run(int argc, char** argv)
{
  const option options[] = {{"help", no_argument, nullptr, 'h'},
                            {"seed", required_argument, nullptr, 's'},
                            {"lengths", no_argument, nullptr, 'l'},
                            {}};
  Request request;
  opterr = 0; // it would say why it refuses an option in words of its own
  for (int found = 0; (found = getopt_long(argc, argv, ":h", options, nullptr)) != -1;)
  {
    switch (found)
    {
    case 'h':
      std::cout << help << std::flush;
      return EXIT_SUCCESS;
    case 's':
      request.seed = toNumber(optarg);
      break;
    case 'l':
      request.lengths = true;
      break;
    default:
      if (std::isdigit(static_cast<unsigned char>(optopt)) != 0)
      {
        throw std::invalid_argument("There are no negative numbers here. "
                                    "See orvex-generate --help.");
      }
      throw std::invalid_argument(orvex::terminal::refusedOption(argv, found) +
                                  " See orvex-generate --help.");
    }
  }
  if (argc - optind != 2)
  {
    throw std::invalid_argument("A SHAPE and a number of LEAVES are needed. "
                                "See orvex-generate --help.");
  }
  request.shape = argv[optind];
  request.leaves = toNumber(argv[optind + 1]);
  generate(request);
  return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
  return orvex::terminal::runProgram("orvex-generate", run, argc, argv);
}
