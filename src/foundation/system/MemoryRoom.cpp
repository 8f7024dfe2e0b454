#include "foundation/system/MemoryRoom.h"

#include "foundation/system/AllocatorMemory.h"
#include "foundation/system/ControlGroup.h"
#include "foundation/system/NumberFile.h"

#include <sys/resource.h>

#include <algorithm>

namespace Kelmar::System
{
namespace Detail
{
namespace
{

// /proc counts in kibibytes.
std::size_t bytes(const std::string& file, const char* name)
{
  return numberAfter(file, name).value_or(0) * 1024;
}

std::size_t resourceLimit(int resource)
{
  rlimit limit{};
  // RLIM_INFINITY is the largest value of its type.
  return getrlimit(static_cast<__rlimit_resource>(resource), &limit) == 0 ? limit.rlim_cur
                                                                          : RLIM_INFINITY;
}

} // namespace
} // namespace Detail

MemoryRoom::MemoryRoom(const std::string& root)
{
  giveBackMemory();
  _machine(root + "/proc");
  _controlGroups(root);
  _resourceLimits(root + "/proc");
}

void MemoryRoom::_atMost(std::size_t limit, std::size_t used, const char* whose)
{
  const std::size_t left = limit - std::min(limit, used);
  if (left < _free)
  {
    _free = left;
    _limit = limit;
    _whose = whose;
  }
}

void MemoryRoom::_machine(const std::string& proc)
{
  const std::string file = proc + "/meminfo";
  if (!numberAfter(file, "MemAvailable:"))
  {
    return;
  }
  const std::size_t all = Detail::bytes(file, "MemTotal:") + Detail::bytes(file, "SwapTotal:");
  const std::size_t free = Detail::bytes(file, "MemAvailable:") + Detail::bytes(file, "SwapFree:");
  _atMost(all, all - std::min(all, free), "that this machine has");
  if (firstNumber(proc + "/sys/vm/overcommit_memory") == 2)
  {
    _atMost(Detail::bytes(file, "CommitLimit:"), Detail::bytes(file, "Committed_AS:"),
            "that this machine promises to its programs (vm.overcommit_memory)");
  }
}

void MemoryRoom::_controlGroups(const std::string& root)
{
  for (const ControlGroup& group : ControlGroup::ofThisProcess(root))
  {
    _atMost(group.limit, group.used, "that this session or container may use (its control group)");
  }
}

void MemoryRoom::_resourceLimits(const std::string& proc)
{
  const std::string file = proc + "/self/status";
  // What a library that is loaded later takes of the addresses is more than its memory.
  constexpr std::size_t addressesOfLibraries = std::size_t(64) << 20;
  _atMost(Detail::resourceLimit(RLIMIT_AS), Detail::bytes(file, "VmSize:") + addressesOfLibraries,
          "that this process may use (ulimit -v)");
  _atMost(Detail::resourceLimit(RLIMIT_DATA), Detail::bytes(file, "VmData:"),
          "that this process may use (ulimit -d)");
}

} // namespace Kelmar::System
