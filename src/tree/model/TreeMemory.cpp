#include "tree/model/TreeMemory.h"

#include "tree/model/Tree.h"
#include "tree/model/TreeSize.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace orvex
{
namespace Detail
{
namespace
{

constexpr std::size_t mebibyte = std::size_t(1) << 20;

// What does not depend on the tree is the driver's. These are the numbers of Mesa's software
// renderer, which takes the most of main memory, in a window of 800 by 600 and at the first
// opening, when it also compiles its shaders. The window and its context:
constexpr std::size_t bytesOfContext = 44 * mebibyte;
// The same with a frame that shows no letter:
constexpr std::size_t bytesOfFrame = 54 * mebibyte;
// It keeps all that a frame is told to draw, up to a bound of its own. Each letter is some states
// and a call; the window has room for so many labels.
constexpr std::size_t bytesPerLetter = 28'500;
constexpr std::size_t mostOfLetters = 60 * mebibyte;
constexpr std::size_t labelsInWindow = 48;

// A leaf has a node of the scene, of 96 bytes, its place in the list of its parent, 8, a label, 80,
// with place and extent in their list, 9, and some bits in the list of what exists, 3. An inner
// node has the node of the scene with its place, 104, the head of the list of its children, 16, and
// lines of 64 to 80. A twentieth is added, as the allocator does not fill its pages.
constexpr std::size_t bytesPerNode = 205;
// The leaves are in a list of ids while the labels are made, which grows to twice its size.
constexpr std::size_t bytesPerLeaf = 25;
// The record of the layout goes when the node's scene is made; so that of no other node.
constexpr std::size_t bytesPerRecord = 64;

// Of the stack, up to the first frame. The system gives it once and takes it never back.
constexpr std::size_t bytesPerLevel = 200;

std::size_t bytesOfLetters(const TreeSize& size)
{
  const std::size_t labels = std::min(size.shownLeaves, labelsInWindow);
  const std::size_t each = size.letters / std::max(size.shownLeaves, std::size_t(1));
  return std::min(labels * each * bytesPerLetter, mostOfLetters);
}

std::string inWords(std::size_t bytes)
{
  const double size = static_cast<double>(bytes) / (1 << 20);
  char text[32];
  if (size < 1024)
  {
    std::snprintf(text, sizeof text, "%.0f MiB", size);
  }
  else
  {
    std::snprintf(text, sizeof text, "%.1f GiB", size / 1024);
  }
  return text;
}

} // namespace
} // namespace Detail

// The layout is gone when the first frame is drawn.
std::size_t memoryToShow(const TreeSize& size)
{
  const std::size_t others = size.nodes - size.shownNodes;
  return std::max(Detail::bytesOfContext + others * Detail::bytesPerRecord,
                  Detail::bytesOfFrame + Detail::bytesOfLetters(size)) +
         size.shownNodes * Detail::bytesPerNode + size.shownLeaves * Detail::bytesPerLeaf +
         size.labelBytes + size.levels * Detail::bytesPerLevel;
}

std::size_t memoryOfTree(const TreeSize& size)
{
  return size.nodes * Tree::bytesPerNode + size.leaves * sizeof(std::string) + size.nameBytes;
}

std::size_t memoryToReadAndShow(const TreeSize& size, std::size_t source, std::size_t inUse)
{
  const std::size_t most = memoryOfTree(size) + std::max(memoryToShow(size), source);
  return most - std::min(most, inUse);
}

void requireMemory(const std::string& work, std::size_t needed,
                   const Kelmar::System::MemoryRoom& room)
{
  if (needed > room.free())
  {
    throw std::runtime_error(work + " takes " + Detail::inWords(needed) + " of memory. " +
                             Detail::inWords(room.free()) + " are free of the " +
                             Detail::inWords(room.limit()) + " " + room.whose() + ".");
  }
}

} // namespace orvex
