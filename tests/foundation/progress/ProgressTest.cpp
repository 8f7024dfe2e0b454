#include "foundation/progress/Work.h"
#include "support/HeardProgress.h"
#include "support/Outcome.h"

#include <thread>

using Kelmar::Progress::Listening;
using Kelmar::Progress::Stage;
using Kelmar::Progress::Work;

TEST(ProgressTest, RisesFromItsBeginToItsEndInFourHundredReports)
{
  struct Case
  {
    std::size_t units, step, steps;
    double reports;
  };
  for (const auto [units, step, steps, reports] :
       {Case{0, 1, 0, 2}, Case{0, 1, 9, 3}, Case{1, 1, 1, 3}, Case{50, 1, 50, 52},
        Case{1'000'000, 1, 1'000'000, 402}, Case{1'000'000, 7, 1'000'000, 402},
        Case{1'000'000, 300'000, 2, 4}})
  {
    SCOPED_TRACE(units * 10 + step);
    HeardProgress heard;
    {
      Work work(Stage::Scene, units, 0.25, 0.75);
      for (std::size_t i = 0; i < steps; ++i)
      {
        work.done(step);
      }
    }
    EXPECT_EQ(heard.reports.front(), std::pair(Stage::Scene, 0.25));
    EXPECT_EQ(heard.reports.back(), std::pair(Stage::Scene, 0.75));
    EXPECT_NEAR(double(heard.reports.size()), reports, reports / 100);
  }
}

TEST(ProgressTest, AnExceptionEndsItWithoutItsEnd)
{
  HeardProgress heard;
  const auto fails = []
  {
    Work work(Stage::Reading, 100);
    work.done(50);
    throw std::runtime_error("half");
  };
  EXPECT_EQ(errorOf(fails), "half");
  EXPECT_EQ(heard.reports.back().second, 0.5);
}

TEST(ProgressTest, IsHeardByTheInnermostListenerOfItsThread)
{
  HeardProgress outer;
  std::size_t innerReports = 0;
  {
    Work work(Stage::Layout, 10);
    {
      HeardProgress inner;
      work.done(3);
      innerReports = inner.reports.size();
    }
    std::thread([] { Work(Stage::Picture, 10).done(5); }).join();
    work.done(3);
  }
  EXPECT_EQ(innerReports, 1);
  EXPECT_THAT(outer.reports,
              testing::ElementsAre(std::pair(Stage::Layout, 0.0), std::pair(Stage::Layout, 0.6),
                                   std::pair(Stage::Layout, 1.0)));
}

TEST(ProgressTest, TheStagesOfAnOpeningFollowEachOther)
{
  using Kelmar::Progress::shareOfWhole;
  double end = 0.0;
  for (const Stage stage : {Stage::Reading, Stage::Layout, Stage::Scene, Stage::Picture})
  {
    EXPECT_EQ(shareOfWhole(stage, 0.0), end);
    EXPECT_GT(shareOfWhole(stage, 0.5), end);
    end = shareOfWhole(stage, 1.0);
  }
  EXPECT_EQ(end, 1.0);
}
