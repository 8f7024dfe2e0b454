#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

namespace orvex::bench
{

/// Measures memory: the resident set of the process, and its highest value since the constructor.
class MemoryMeter
{
public:
  /// First gives free memory back to the system, so that using it again is counted.
  MemoryMeter();

  /// The most bytes in use at one time since the start, less those in use at the start.
  std::size_t peak() const;
  /// The bytes in use now, less those in use at the start.
  std::size_t now() const;

  /// Adds both as counters, in bytes for each leaf.
  void report(benchmark::State& state, unsigned int leaves) const;

private:
  std::size_t _start = 0;
};

} // namespace orvex::bench
