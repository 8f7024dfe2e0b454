#include "tree/model/TreeMemory.h"

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>

namespace orvex
{
namespace Detail
{
namespace
{

// The most memory in use until the first frame is drawn, without the tree: measured some 230 bytes
// for a node of a binary tree and some 280 for one of a star, which has more labels for its nodes.
constexpr std::size_t bytesPerNode = 290;

std::string inGibibytes(std::size_t bytes)
{
  char text[32];
  std::snprintf(text, sizeof text, "%.1f GiB", static_cast<double>(bytes) / (1 << 30));
  return text;
}

} // namespace
} // namespace Detail

std::size_t memoryToShow(unsigned int numberOfNodes)
{
  return numberOfNodes * Detail::bytesPerNode;
}

std::size_t availableMemory()
{
  std::ifstream lines("/proc/meminfo");
  std::size_t kibibytes = 0;
  bool isKnown = false;
  for (std::string word; lines >> word;)
  {
    std::size_t number = 0;
    if ((word == "MemAvailable:" || word == "SwapFree:") && lines >> number)
    {
      kibibytes += number;
      isKnown = isKnown || word == "MemAvailable:";
    }
  }
  return isKnown ? kibibytes * 1024 : std::numeric_limits<std::size_t>::max();
}

void requireMemory(unsigned int numberOfNodes, std::size_t available)
{
  const std::size_t needed = memoryToShow(numberOfNodes);
  if (needed > available)
  {
    throw std::runtime_error("To show the tree's " + std::to_string(numberOfNodes) +
                             " nodes takes " + Detail::inGibibytes(needed) + " of memory. " +
                             Detail::inGibibytes(available) + " are free.");
  }
}

} // namespace orvex
