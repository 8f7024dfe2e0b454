#pragma once

#include <boost/core/noncopyable.hpp>

namespace Kelmar::System
{

/// While an object of this class exists, the program takes memory in pages of two mebibytes, in
/// which a large tree is built in a third of the time. At other times it takes small pages: the
/// first touch of a large one can cost a frame several milliseconds. Objects may be nested.
class LargePages : private boost::noncopyable
{
public:
  /// To be called once, when the program starts; until then objects have no effect. Lets the
  /// allocator ask for large pages, and give back each page of them when it is free.
  /// MIMALLOC_LARGE_OS_PAGES=0 in the environment prevents it. Without mimalloc in the process, or
  /// if that was started without large pages, nothing happens.
  static void prefer();

  LargePages();
  ~LargePages();

private:
  bool _wereAllowed;
};

} // namespace Kelmar::System
