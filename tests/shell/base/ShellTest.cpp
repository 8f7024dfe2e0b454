#include "shell/base/Environment.h"
#include "shell/base/NoThrow.h"
#include "shell/base/TerminationReport.h"
#include "shell/base/UserDirectory.h"
#include "support/Outcome.h"

using Kelmar::System::Environment;
using Kelmar::User::Directory;

TEST(Guard, WritesOneLineForAFailureAndGoesOn)
{
  using Kelmar::Functions::noThrow;
  using Kelmar::Functions::Helper::exceptionHandler;
  EXPECT_EQ(printed(
                []
                {
                  noThrow([] {}, "2445711089");
                  noThrow([] { throw std::out_of_range("too far"); }, "2445711089");
                  noThrow([] { throw 17; }, "8033290760");
                  exceptionHandler(nullptr, std::cout);
                  exceptionHandler(nullptr, std::runtime_error("why"), std::cout);
                }),
            "Error 2445711089: too far\n"
            "Error 8033290760: exception generated when calling wrapped function\n"
            "Error 1129262471: exception generated when calling wrapped function\n"
            "Error 3830268935: why\n");
}

TEST(Guard, WritesWhyTheProcessEndsWhereNothingCanCatch)
{
  const std::string path = newFolder() + "/exception.txt";
  const std::function<void()> fail = [] { throw std::runtime_error("misuse"); };
  const auto misuse = [&]() noexcept
  {
    std::ofstream file(path);
    const Kelmar::Functions::TerminationReport report("1630567380", file);
    fail();
  };
  EXPECT_DEATH(misuse(), "misuse");
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  EXPECT_EQ(text.str(), "Error 1630567380: misuse\n");
}

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
