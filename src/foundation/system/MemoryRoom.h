#pragma once

#include <cstddef>
#include <limits>
#include <string>

namespace Kelmar::System
{

/// How much memory this process may still take, at the time when the object is made: the least that
/// the machine, the control groups of the process and its resource limits leave.
///
/// What the allocator holds unused is given back first, so that it is counted as free. Memory that
/// the kernel holds as a copy of files is counted as free too, since it lets that go at need.
class MemoryRoom
{
public:
  /// \param root  before the paths of /proc and /sys, for a system that lies in a folder
  explicit MemoryRoom(const std::string& root = "");

  /// In bytes; the largest number if nothing is known.
  std::size_t free() const { return _free; }
  /// The bytes of the limit that leaves the least, those in use included.
  std::size_t limit() const { return _limit; }
  /// Whose limit that is, as words that follow "of the 4.0 GiB ".
  const char* whose() const { return _whose; }

private:
  void _atMost(std::size_t limit, std::size_t used, const char* whose);
  void _machine(const std::string& proc);
  void _controlGroups(const std::string& root);
  void _resourceLimits(const std::string& proc);

  std::size_t _free = std::numeric_limits<std::size_t>::max();
  std::size_t _limit = _free;
  const char* _whose = "that this machine has";
};

} // namespace Kelmar::System
