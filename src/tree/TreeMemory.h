#pragma once

#include <cstddef>

namespace orvex
{

/// Bytes of memory that it takes to lay out and show a tree, beside those that the tree itself has.
std::size_t memoryToShow(unsigned int numberOfNodes);

/// Bytes of memory that the machine can give at present, swap space included. Where it can't be
/// told, there is no limit.
std::size_t availableMemory();

/// Refuses a tree that would make the system end the program for want of memory.
/// \throws std::runtime_error  if the nodes take more than \p available bytes
void requireMemory(unsigned int numberOfNodes, std::size_t available = availableMemory());

} // namespace orvex
