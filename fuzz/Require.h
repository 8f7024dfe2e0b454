#pragma once

#include <cstdio>
#include <cstdlib>

/// Aborts the process if a property does not hold. The fuzzer reports that as a finding.
inline void require(bool holds, const char* property)
{
  if (!holds)
  {
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
  }
}
