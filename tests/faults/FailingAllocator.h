#pragma once

#include <boost/core/noncopyable.hpp>

#include <cstddef>

/// For a scope, operator new of this thread fails at its n-th call, counted from 0: then only, or
/// then and ever after.
class FailingAllocator : private boost::noncopyable
{
public:
  /// \param leastSize  above 0: only calls by the program's own code for that many bytes count, not
  ///                   those of shared libraries
  FailingAllocator(long n, bool everAfter, std::size_t leastSize = 0);
  ~FailingAllocator();
};

/// Whether a call was refused in the last scope.
bool allocatorFailed();
