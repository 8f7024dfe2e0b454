#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Kelmar::System
{

/// A control group of the kernel that limits this process's memory: those of containers, batch
/// systems and systemd.
struct ControlGroup
{
  /// In bytes; the largest number for no limit.
  std::size_t limit;
  /// In bytes, without what the kernel holds as a copy of files and lets go at need.
  std::size_t used;

  /// The group of this process and those around it, of version 1 and of version 2. Empty where
  /// there are none, or where they can't be read. \param root  before the paths of /proc and /sys,
  /// for a system that lies in a folder
  static std::vector<ControlGroup> ofThisProcess(const std::string& root = "");
};

} // namespace Kelmar::System
