#include "foundation/system/ControlGroup.h"

#include "foundation/system/NumberFile.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>

namespace Kelmar::System
{
namespace Detail
{
namespace
{

/// The names by which the groups of a version tell of memory.
struct Version
{
  const char* fileSystem;
  // How the process's group begins in /proc/self/cgroup, behind the hierarchy's number.
  const char* controllers;
  const char* limit;
  const char* used;
  // Of memory.stat: the pages of files, those in long use and the others.
  const char* active;
  const char* inactive;
};

constexpr Version versions[] = {
    {"cgroup", "memory", "memory.limit_in_bytes", "memory.usage_in_bytes", "total_active_file",
     "total_inactive_file"},
    {"cgroup2", "", "memory.max", "memory.current", "active_file", "inactive_file"}};

bool contains(const std::string& list, const std::string& item)
{
  return ("," + list + ",").find("," + item + ",") != std::string::npos;
}

/// Where a hierarchy of groups is found: \p group of it is the folder \p path.
struct Mount
{
  std::string group, path;
};

// A line is "number parent device root path options, some more fields - type source options".
Mount findMount(const std::string& root, const Version& version)
{
  std::ifstream lines(root + "/proc/self/mountinfo");
  for (std::string line; std::getline(lines, line);)
  {
    std::istringstream in(line);
    const std::vector<std::string> fields{std::istream_iterator<std::string>(in), {}};
    const auto dash = std::find(fields.begin(), fields.end(), "-");
    if (dash - fields.begin() >= 6 && fields.end() - dash >= 4 && dash[1] == version.fileSystem &&
        (!*version.controllers || contains(dash[3], version.controllers)))
    {
      return {fields[3], fields[4]};
    }
  }
  return {};
}

// A line is "number:controllers:group".
std::string findGroup(const std::string& root, const Version& version)
{
  std::ifstream lines(root + "/proc/self/cgroup");
  for (std::string number, controllers, group; std::getline(lines, number, ':') &&
                                               std::getline(lines, controllers, ':') &&
                                               std::getline(lines, group);)
  {
    if (*version.controllers ? contains(controllers, version.controllers) : controllers.empty())
    {
      return group;
    }
  }
  return "";
}

ControlGroup read(const std::string& folder, const Version& version)
{
  const std::string stat = folder + "/memory.stat";
  const std::size_t used = firstNumber(folder + "/" + version.used).value_or(0);
  const std::size_t files = numberAfter(stat, version.active).value_or(0) +
                            numberAfter(stat, version.inactive).value_or(0);
  return {
      firstNumber(folder + "/" + version.limit).value_or(std::numeric_limits<std::size_t>::max()),
      used - std::min(used, files)};
}

// The folders below the mount that lead to the process's group; empty for the mount itself.
std::string pathBelow(const Mount& mount, const std::string& group)
{
  // In a container the mount may begin at the container's own group, or even below the process's.
  const std::string begin = mount.group == "/" ? "" : mount.group;
  const bool isBelow = (group + "/").compare(0, begin.size() + 1, begin + "/") == 0;
  const std::string path = isBelow ? group.substr(begin.size()) : "";
  return path == "/" || path.find("..") != std::string::npos ? "" : path;
}

void append(const std::string& root, const Version& version, std::vector<ControlGroup>& groups)
{
  const Mount mount = findMount(root, version);
  const std::string group = findGroup(root, version);
  if (mount.path.empty() || group.empty())
  {
    return;
  }
  std::string path = pathBelow(mount, group);
  const std::string top = root + mount.path;
  groups.push_back(read(top + path, version));
  while (!path.empty())
  {
    path.resize(path.rfind('/'));
    groups.push_back(read(top + path, version));
  }
}

} // namespace
} // namespace Detail

std::vector<ControlGroup> ControlGroup::ofThisProcess(const std::string& root)
{
  std::vector<ControlGroup> groups;
  for (const Detail::Version& version : Detail::versions)
  {
    Detail::append(root, version, groups);
  }
  return groups;
}

} // namespace Kelmar::System
