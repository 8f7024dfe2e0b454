// Makes of a tree in Newick or NEXUS the narrow Newick that the viewer reads.

#include "convert/Conversion.h"
#include "terminal/Options.h"
#include "terminal/Program.h"

#include <getopt.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace
{

namespace convert = orvex::convert;

const char* const help =
    R"(Usage: orvex-convert [options] IN OUT
       orvex-convert --list IN
Makes of a tree in Newick or NEXUS, as other programs write them, the simple
Newick that orvex-tree-viewer reads: names and branch lengths, without quotes
and comments.

Options:
  -h, --help      Shows this help.
  --tree <TREE>   Which tree of several: its number, counted from 1, or its
                  name in NEXUS; if not given, the one that is marked with a
                  "*", or else the first.
  --list          Writes a line for each tree to the standard output: number,
                  leaves, name. Converts nothing.
  --keep-letters  Leaves letters beyond ASCII as they are. If not given, they
                  become the nearest ones of ASCII, as the viewer shows boxes
                  for them.
  --quiet         Does not say what was left out.

Arguments:
  IN              A file, also one that gzip or xz has packed; - for the
                  standard input.
  OUT             The file to write, .nwk for the viewer; - for the standard
                  output.

In names, the characters ( ) , and : become "_".
)";

struct Options
{
  convert::Request request;
  bool isList = false;
  bool isQuiet = false;
};

/// The bytes of a file, or of the standard input for "-".
class Input
{
public:
  explicit Input(const std::string& name)
  {
    if (name != "-" && !_file.open(name, std::ios_base::in | std::ios_base::binary))
    {
      throw std::runtime_error("can't open '" + name + "': " + std::strerror(errno));
    }
    _isFile = name != "-";
  }

  std::streambuf& bytes() { return _isFile ? _file : *std::cin.rdbuf(); }

private:
  std::filebuf _file;
  bool _isFile = false;
};

void write(const std::string& name, const std::string& text)
{
  if (name == "-")
  {
    if (!(std::cout << text << std::flush))
    {
      throw std::runtime_error("the tree could not be written");
    }
    return;
  }
  std::ofstream file(name, std::ios_base::binary);
  file << text << std::flush;
  if (!file)
  {
    const std::string reason = std::strerror(errno);
    std::error_code ignored;
    if (file.is_open() && std::filesystem::is_regular_file(name, ignored))
    {
      std::filesystem::remove(name, ignored);
    }
    throw std::runtime_error("can't write '" + name + "': " + reason);
  }
}

void work(const std::string& in, const std::string& out, const Options& options)
{
  Input input(in);
  try
  {
    convert::Source source(input.bytes());
    if (options.isList)
    {
      convert::list(source, std::cout);
      return;
    }
    const convert::Conversion conversion = convert::convert(source, options.request);
    write(out, conversion.text);
    if (const std::string report = conversion.report(); !report.empty() && !options.isQuiet)
    {
      std::cerr << "orvex-convert: " + report + "\n";
    }
  }
  catch (const convert::BadText& e)
  {
    throw std::runtime_error(in + ": " + e.what());
  }
}

int run(int argc, char** argv)
{
  const option known[] = {
      {"help", no_argument, nullptr, 'h'},       {"keep-letters", no_argument, nullptr, 'k'},
      {"list", no_argument, nullptr, 'l'},       {"quiet", no_argument, nullptr, 'q'},
      {"tree", required_argument, nullptr, 't'}, {}};
  Options options;
  opterr = 0; // it would say why it refuses an option in words of its own
  for (int found = 0; (found = getopt_long(argc, argv, ":h", known, nullptr)) != -1;)
  {
    switch (found)
    {
    case 'h':
      std::cout << help << std::flush;
      return EXIT_SUCCESS;
    case 'k':
      options.request.keepsLetters = true;
      break;
    case 'l':
      options.isList = true;
      break;
    case 'q':
      options.isQuiet = true;
      break;
    case 't':
      options.request.tree = optarg;
      break;
    default:
      throw std::invalid_argument(orvex::terminal::refusedOption(argv, found) +
                                  " See orvex-convert --help.");
    }
  }
  if (argc - optind != (options.isList ? 1 : 2))
  {
    throw std::invalid_argument(
        std::string(options.isList ? "One file to list is" : "IN and OUT are") +
        " needed. See orvex-convert --help.");
  }
  work(argv[optind], options.isList ? "" : argv[optind + 1], options);
  return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
  std::ios_base::sync_with_stdio(false);
  return orvex::terminal::runProgram("orvex-convert", run, argc, argv);
}
