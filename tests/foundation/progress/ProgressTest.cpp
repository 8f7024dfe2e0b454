#include "foundation/progress/PacedListener.h"
#include "foundation/progress/Stopped.h"
#include "foundation/progress/Work.h"
#include "support/HeardProgress.h"

#include <chrono>
#include <thread>

using Kelmar::Progress::Listening;
using Kelmar::Progress::Stage;
using Kelmar::Progress::Work;

constexpr Stage secondHalf{"second half", 0.5, 1.0};

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
      Work work(secondHalf, units, 0.25, 0.75);
      for (std::size_t i = 0; i < steps; ++i)
      {
        work.done(step);
      }
    }
    EXPECT_EQ(heard.reports.front(), std::pair(std::string(secondHalf.text), 0.25));
    EXPECT_EQ(heard.reports.back(), std::pair(std::string(secondHalf.text), 0.75));
    EXPECT_NEAR(double(heard.reports.size()), reports, reports / 100);
  }
}

TEST(ProgressTest, IsHeardByTheInnermostListenerOfItsThread)
{
  HeardProgress outer;
  std::size_t innerReports = 0;
  {
    Work work(secondHalf, 10);
    {
      HeardProgress inner;
      work.done(3);
      innerReports = inner.reports.size();
    }
    std::thread([] { Work(secondHalf, 10).done(5); }).join();
    work.done(3);
  }
  EXPECT_EQ(innerReports, 1);
  const std::string text = secondHalf.text;
  EXPECT_THAT(outer.reports, testing::ElementsAre(std::pair(text, 0.0), std::pair(text, 0.6),
                                                  std::pair(text, 1.0)));
}

TEST(ProgressTest, IsShownFromHalfASecondOnAsAShareOfTheWhole)
{
  struct : Kelmar::Progress::PacedListener
  {
    void show(const Stage&, double share) override { shown.push_back(share); }
    std::vector<double> shown;
  } listener;
  listener.progress(secondHalf, 0.2);
  EXPECT_EQ(listener.shown.size(), 0);
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  listener.progress(secondHalf, 0.5);
  EXPECT_THAT(listener.shown, testing::ElementsAre(0.75));
}

TEST(ProgressTest, IsEndedByItsListenerAtEachReportButTheLast)
{
  struct : Kelmar::Progress::Listener
  {
    void progress(const Stage&, double share) override
    {
      if (share > from)
      {
        throw Kelmar::Progress::Stopped();
      }
    }
    double from = 0.5;
  } listener;
  const Listening listening(listener);
  {
    Work work(secondHalf, 4);
    work.done(2);
    EXPECT_THROW(work.done(), Kelmar::Progress::Stopped);
  } // its last report is one too many, but a destructor throws nothing
  listener.from = -1.0;
  EXPECT_THROW(Work(secondHalf, 1), Kelmar::Progress::Stopped);
}
