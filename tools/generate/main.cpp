// Writes a generated tree in Newick form to the standard output.

#include "generate/TreeGenerator.h"
#include "terminal/TerminalProgress.h"

#include <charconv>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

const char* const usage =
    "usage: orvex-generate random|balanced|ladder|star|polytomy LEAVES [--seed N] [--lengths]";

unsigned int toNumber(const std::string& text)
{
  unsigned int number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end)
  {
    throw std::invalid_argument("'" + text + "' is no whole number, or too large");
  }
  return number;
}

struct Request
{
  std::vector<std::string> words;
  unsigned int seed = 1;
  bool lengths = false;
};

Request parse(const std::vector<std::string>& arguments)
{
  Request request;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument)
  {
    if (*argument == "--lengths")
    {
      request.lengths = true;
    }
    else if (*argument == "--seed" && argument + 1 != arguments.end())
    {
      request.seed = toNumber(*++argument);
    }
    else if (argument->rfind("--", 0) == 0)
    {
      throw std::invalid_argument(usage);
    }
    else
    {
      request.words.push_back(*argument);
    }
  }
  if (request.words.size() != 2)
  {
    throw std::invalid_argument(usage);
  }
  return request;
}

void generate(const Request& request)
{
  const orvex::tools::TerminalProgress progress;
  orvex::tools::TreeGenerator generator(request.seed);
  generator.write(std::cout, orvex::tools::shapeFromName(request.words[0]),
                  toNumber(request.words[1]), request.lengths);
  std::cout << '\n' << std::flush;
  if (!std::cout)
  {
    throw std::runtime_error("the tree could not be written");
  }
}

} // namespace

int main(int argc, char** argv)
{
  try
  {
    generate(parse({argv + 1, argv + argc}));
    return 0;
  }
  catch (const std::exception& e)
  {
    std::cerr << "orvex-generate: " << e.what() << '\n';
    return 1;
  }
}
