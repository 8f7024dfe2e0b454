#include "MemoryMeter.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace orvex::bench
{
namespace Detail
{
namespace
{

/// \param field  a line of /proc/self/status that gives kibibytes
std::size_t statusBytes(const std::string& field)
{
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;)
  {
    if (word == field)
    {
      std::size_t kibibytes = 0;
      status >> kibibytes;
      return kibibytes * 1024;
    }
  }
  return 0;
}

std::size_t difference(std::size_t later, std::size_t earlier)
{
  return later > earlier ? later - earlier : 0;
}

} // namespace
} // namespace Detail

MemoryMeter::MemoryMeter()
{
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5"; // sets the peak to what is in use now
  _start = Detail::statusBytes("VmRSS:");
}

std::size_t MemoryMeter::peak() const
{
  return Detail::difference(Detail::statusBytes("VmHWM:"), _start);
}

std::size_t MemoryMeter::now() const
{
  return Detail::difference(Detail::statusBytes("VmRSS:"), _start);
}

void MemoryMeter::report(benchmark::State& state, unsigned int leaves) const
{
  state.counters["peakB/leaf"] = static_cast<double>(peak()) / leaves;
  state.counters["keptB/leaf"] = static_cast<double>(now()) / leaves;
}

} // namespace orvex::bench
