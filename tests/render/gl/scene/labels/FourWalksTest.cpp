#include "render/gl/scene/labels/FourWalks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <vector>

namespace
{

using orvex::render::gl::FourWalks;
using Words = std::vector<orvex::render::gl::RisingBits::Word>;

// Compared with one walk. Walks that begin at different numbers may never meet if all their steps
// are alike, or all but one.
TEST(FourWalks, SetTheBitsOfOneWalk)
{
  std::mt19937 random(11);
  for (const std::size_t shortest : {1u, 2u, 3u, 7u})
  {
    for (const unsigned int longSteps : {0u, 1u, 20u, 80u, 99u, 100u}) // in a hundred
    {
      SCOPED_TRACE(testing::Message() << shortest << " " << longSteps);
      std::vector<std::size_t> step(4000 * shortest);
      std::generate(step.begin(), step.end(),
                    [&] { return shortest + (random() % 100 < longSteps ? 1 : 0); });
      step[random() % step.size()] = shortest;
      const auto next = [&](std::size_t number) { return number + step.at(number); };
      const std::size_t first = random() % 200;
      const std::size_t end = step.size() - random() % 200;
      Words expected(step.size() / 64 + 1);
      std::size_t number = first;
      for (; number < end; number = next(number))
      {
        expected[number / 64] |= Words::value_type(1) << number % 64;
      }
      Words found(expected.size());
      EXPECT_EQ(FourWalks(found, shortest + 1, next).go(first, end), number);
      EXPECT_EQ(found, expected);
    }
  }
}

} // namespace
