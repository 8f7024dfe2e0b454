#include "foundation/system/Environment.h"
#include "foundation/system/MemoryRoom.h"
#include "foundation/system/UserDirectory.h"
#include "support/Outcome.h"

using Kelmar::System::Environment;
using Kelmar::User::Directory;

/// The home directory of the time before comes back at the end.
class UserDirectoryTest : public testing::Test
{
protected:
  ~UserDirectoryTest() override { setenv("HOME", before.c_str(), 1); }

  const std::string before = Environment::get("HOME");
};

TEST_F(UserDirectoryTest, LiesInTheHomeDirectoryThatLosesOneSlash)
{
  for (const std::string expected : {"/home/user", "/home/user/", ""})
  {
    setenv("HOME", (expected + "/").c_str(), 1);
    EXPECT_EQ(Directory::documents(), expected);
    EXPECT_EQ(Directory::program("Vendor", "a b"), expected + "/.Vendor/a b");
  }
}

TEST_F(UserDirectoryTest, SaysWhatIsMissing)
{
  EXPECT_EQ(errorOf([] { Directory::vendor(""); }), "Error 2017220875: Empty vendor name given.");
  EXPECT_EQ(errorOf([] { Directory::program("", ""); }),
            "Error 3166677210: Empty program name given.");
  for (const char* home : {"", static_cast<const char*>(nullptr)})
  {
    home ? setenv("HOME", home, 1) : unsetenv("HOME");
    EXPECT_EQ(errorOf([] { Directory::program("Vendor", "viewer"); }) +
                  errorOf(&Directory::documents),
              "Error 3888703160: Failed to find user's application-data directory"
              "Error 2322383190: Failed to find user's document directory");
  }
}

/// What a system tells of memory: the names of its files, and what they hold.
using Files = std::vector<std::pair<std::string, std::string>>;

TEST(MemoryRoom, IsTheLeastThatMachineAndControlGroupsLeave)
{
  constexpr std::size_t mebibyte = 1 << 20;
  const Files machine{{"proc/meminfo", "MemTotal: 10240 kB\nMemFree: 1 kB\nMemAvailable: 8192 kB\n"
                                       "SwapTotal: 2048 kB\nSwapFree: 1024 kB\n"}};
  const Files version2{
      {"proc/self/cgroup", "0::/a.slice/b.scope\n"},
      {"proc/self/mountinfo", "30 24 0:26 / /sys/fs/cgroup rw - cgroup2 cgroup2 rw\n"},
      {"sys/fs/cgroup/a.slice/memory.max", "5242880\n"},
      {"sys/fs/cgroup/a.slice/memory.current", "4194304\n"},
      {"sys/fs/cgroup/a.slice/memory.stat", "anon 1\ninactive_file 1048576\nactive_file 1048576\n"},
      {"sys/fs/cgroup/a.slice/b.scope/memory.max", "max\n"}};
  const Files version1{
      {"proc/self/cgroup", "5:cpu:/x\n4:blkio,memory:/outer/job\n0::/\n"},
      {"proc/self/mountinfo", "31 24 0:27 /outer /sys/memory rw - cgroup c rw,blkio,memory\n"},
      {"sys/memory/job/memory.limit_in_bytes", "2097152\n"},
      {"sys/memory/job/memory.usage_in_bytes", "1048576\n"}};
  for (const auto& [what, files, free, limit] :
       {std::tuple("machine", Files{}, 9 * mebibyte, 12 * mebibyte),
        std::tuple("a slice", version2, 3 * mebibyte, 5 * mebibyte),
        std::tuple("a container", version1, mebibyte, 2 * mebibyte)})
  {
    const std::string root = newFolder();
    for (const Files& all : {machine, files})
    {
      for (const auto& [name, text] : all)
      {
        std::filesystem::create_directories(std::filesystem::path(root + "/" + name).parent_path());
        writeFile(root + "/" + name, text);
      }
    }
    const Kelmar::System::MemoryRoom room(root);
    EXPECT_EQ(room.free(), free) << what;
    EXPECT_EQ(room.limit(), limit) << what;
  }
  const Kelmar::System::MemoryRoom here;
  EXPECT_GT(here.free(), 64 * mebibyte) << "this machine runs the tests";
}
