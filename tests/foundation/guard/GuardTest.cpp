#include "foundation/guard/NoThrow.h"
#include "foundation/guard/TerminationReport.h"
#include "support/Outcome.h"

TEST(Guard, WritesOneLineForAFailureAndGoesOn)
{
  using Kelmar::Functions::noThrow;
  using Kelmar::Functions::Helper::exceptionHandler;
  EXPECT_EQ(outputOf(
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
