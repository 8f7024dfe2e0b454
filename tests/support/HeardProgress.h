#pragma once

#include "foundation/progress/Listening.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

/// Keeps what is reported while it exists, and checks that the share of the whole never falls.
struct HeardProgress : Kelmar::Progress::Listener
{
  void progress(const Kelmar::Progress::Stage& stage, double share) noexcept override
  {
    EXPECT_LE(whole, stage.shareOfWhole(share)) << stage.text;
    whole = stage.shareOfWhole(share);
    reports.emplace_back(stage.text, share);
  }

  double whole = 0.0;
  /// The stage's text and the share of it.
  std::vector<std::pair<std::string, double>> reports;
  Kelmar::Progress::Listening listening{*this};
};
