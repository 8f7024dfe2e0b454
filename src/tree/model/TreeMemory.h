#pragma once

#include "foundation/system/MemoryRoom.h"

#include <cstddef>
#include <string>

namespace orvex
{

struct TreeSize;

/// Bytes of memory that are needed to lay out a tree and show it, without those of the tree itself:
/// the most in use until the first frame is drawn, never less and at most a quarter more; where the
/// driver takes less than Mesa's of Debian 12, more by what it takes less.
/// `./dev memory` holds it against the truth.
std::size_t memoryToShow(const TreeSize& size);

/// Bytes of memory of a tree that is read but not shown.
std::size_t memoryOfTree(const TreeSize& size);

/// Bytes of memory that are needed to make a tree and show it.
/// \param source  bytes of what the tree is made of, which goes when it is made
/// \param inUse   bytes that are in use already, and no more when the tree is made
std::size_t memoryToReadAndShow(const TreeSize& size, std::size_t source, std::size_t inUse);

/// Refuses a work for which the memory is too small: the system would kill the program.
/// \param work  begins the text of the refusal, as "To read the file"
/// \throws std::runtime_error  if it takes more than is free; says how much and whose limit it is
void requireMemory(const std::string& work, std::size_t needed,
                   const Kelmar::System::MemoryRoom& room = Kelmar::System::MemoryRoom());

} // namespace orvex
