#pragma once

#include <cstddef>

namespace orvex
{

/// Bytes of memory that are needed to lay out and show a tree, without those of the tree itself.
std::size_t memoryToShow(unsigned int numberOfNodes);

/// Bytes of memory that the machine can give at present, swap space included. If that is not known,
/// the result is the largest number.
std::size_t availableMemory();

/// Refuses a tree for which the memory is too small: the system would kill the program.
/// \throws std::runtime_error  if the nodes take more than \p available bytes
void requireMemory(unsigned int numberOfNodes, std::size_t available = availableMemory());

} // namespace orvex
