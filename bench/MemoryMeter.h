#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

namespace orvex::bench
{

/// How much memory something takes: the resident set now, and its peak from here on.
class MemoryMeter
{
public:
  /// Gives free memory back to the system first, so that its reuse counts too.
  MemoryMeter();

  /// Most bytes in use at a time since the start, beyond those in use at the start.
  std::size_t peak() const;
  /// Bytes in use now, beyond those at the start.
  std::size_t now() const;

  /// Adds both as counters, in bytes for each leaf.
  void report(benchmark::State& state, unsigned int leaves) const;

private:
  std::size_t _start = 0;
};

} // namespace orvex::bench
