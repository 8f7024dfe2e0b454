#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the process, which the fuzzer takes for a finding, unless a property holds.
inline void require(bool holds, const char* property)
{
  if (!holds)
  {
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
  }
}
