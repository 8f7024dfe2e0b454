#include "foundation/system/Environment.h"
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
