#pragma once

#include "foundation/progress/Listening.h"

#include <gmock/gmock.h>

#include <utility>
#include <vector>

/// Keeps what is reported while it exists, and checks that within a stage no share falls.
struct HeardProgress : Kelmar::Progress::Listener
{
  using Stage = Kelmar::Progress::Stage;

  void progress(Stage stage, double share) noexcept override
  {
    EXPECT_TRUE(reports.empty() || reports.back() <= std::pair(stage, share)) << share;
    reports.emplace_back(stage, share);
  }

  std::vector<std::pair<Stage, double>> reports;
  Kelmar::Progress::Listening listening{*this};
};
