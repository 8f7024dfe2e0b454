#pragma once

#include "foundation/system/MemoryRoom.h"

#include <cstddef>
#include <string>

namespace orvex
{

class Tree;

/// Bytes of memory that are needed to lay out a tree and show it, without those of the tree itself:
/// the most in use until the first frame is drawn, never less and at most a quarter more. Only what
/// the root reaches is laid out.
std::size_t memoryToShow(const Tree& tree);

/// Refuses a work for which the memory is too small: the system would kill the program.
/// \param work  begins the text of the refusal, as "To read the file"
/// \throws std::runtime_error  if it takes more than is free; says how much and whose limit it is
void requireMemory(const std::string& work, std::size_t needed,
                   const Kelmar::System::MemoryRoom& room = Kelmar::System::MemoryRoom());

} // namespace orvex
