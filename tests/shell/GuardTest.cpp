#include "shell/NoThrow.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <stdexcept>

namespace
{

std::string logOf(const std::function<void()>& action)
{
  std::ostringstream out;
  std::streambuf* before = std::cout.rdbuf(out.rdbuf());
  action();
  std::cout.rdbuf(before);
  return out.str();
}

TEST(Guard, WritesOneLineForAFailureAndGoesOn)
{
  using Kelmar::Functions::noThrow;
  EXPECT_EQ(logOf([] { noThrow([] {}, "2445711089"); }), "");
  EXPECT_EQ(logOf([] { noThrow([] { throw std::out_of_range("too far"); }, "2445711089"); }),
            "Error 2445711089: too far\n");
  EXPECT_EQ(logOf([] { noThrow([] { throw 17; }, "8033290760"); }),
            "Error 8033290760: exception generated when calling wrapped function\n");
}

TEST(Guard, HasNumbersOfItsOwn)
{
  std::ostringstream out;
  Kelmar::Functions::Helper::exceptionHandler(nullptr, out);
  Kelmar::Functions::Helper::exceptionHandler(nullptr, std::runtime_error("why"), out);
  EXPECT_EQ(out.str(), "Error 1129262471: exception generated when calling wrapped function\n"
                       "Error 3830268935: why\n");
}

} // namespace
