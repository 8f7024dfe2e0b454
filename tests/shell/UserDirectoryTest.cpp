#include "shell/UserDirectory.h"
#include "shell/Environment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <stdexcept>

namespace
{

using Kelmar::System::Environment;
using Kelmar::User::Directory;

std::string resultOf(const std::function<std::string()>& path)
{
  try
  {
    return path();
  }
  catch (const std::runtime_error& e)
  {
    return e.what();
  }
}

class UserDirectory : public testing::Test
{
protected:
  void SetUp() override { _home = Environment::get("HOME"); }
  void TearDown() override { setenv("HOME", _home.c_str(), 1); }

private:
  std::string _home;
};

TEST_F(UserDirectory, LosesOneSlashOfTheHomeDirectory)
{
  for (const auto& [home, expected] : {
           std::pair<const char*, const char*>{"/home/user", "/home/user"},
           {"/home/user/", "/home/user"},
           {"/home/user//", "/home/user/"},
           {"/", ""},
       })
  {
    SCOPED_TRACE(home);
    setenv("HOME", home, 1);
    EXPECT_EQ(Directory::documents(), expected);
    EXPECT_EQ(Directory::appData(), expected);
    EXPECT_EQ(Directory::vendor("Vendor"), std::string(expected) + "/.Vendor");
    EXPECT_EQ(Directory::program("Vendor", "a b"), std::string(expected) + "/.Vendor/a b");
  }
}

TEST_F(UserDirectory, SaysWhatIsMissing)
{
  EXPECT_EQ(resultOf([] { return Directory::program("", ""); }),
            "Error 3166677210: Empty program name given.");
  for (const char* home : {"", static_cast<const char*>(nullptr)})
  {
    home ? setenv("HOME", home, 1) : unsetenv("HOME");
    EXPECT_FALSE(Environment::has("HOME"));
    EXPECT_EQ(resultOf([] { return Directory::vendor(""); }),
              "Error 2017220875: Empty vendor name given.");
    EXPECT_EQ(resultOf([] { return Directory::program("Vendor", "viewer"); }),
              "Error 3888703160: Failed to find user's application-data directory");
    EXPECT_EQ(resultOf(Directory::documents),
              "Error 2322383190: Failed to find user's document directory");
  }
  EXPECT_EQ(Environment::get(""), "");
}

} // namespace
