#include "console/comtrade/counter_round.h"

#include <gtest/gtest.h>

namespace console {
namespace {

/// What is learnt from the counters of a stream.
std::int32_t RoundOf(std::int64_t round, std::int64_t first, std::int64_t samples) {
  CounterRound learnt;
  for (std::int64_t i = 0; i < samples; ++i) learnt.Take((first + i) % round);
  return learnt.Samples();
}

TEST(CounterRound, IsLearntWhereTheCounterBeginsAnew) {
  EXPECT_EQ(RoundOf(4000, 3990, 20), 4000);
  EXPECT_EQ(RoundOf(4800, 3000, 4000), 4800);
  EXPECT_EQ(RoundOf(14'400, 14'000, 800), 14'400);
}

TEST(CounterRound, IsTheSmallestThatHoldsACounterThatNeverBeganAnew) {
  EXPECT_EQ(RoundOf(4000, 0, 10), 4000);
  EXPECT_EQ(RoundOf(4800, 300, 4000), 4800);
}

TEST(CounterRound, IsNotMisledByABrokenCounter) {
  CounterRound learnt;
  for (const std::int64_t counter : {3998, 3999, 0, 60'000, 2, -7, 3}) learnt.Take(counter);

  EXPECT_EQ(learnt.Samples(), 4000);
}

TEST(CounterRound, OfNoStandardIsTheCountersOwn) {
  EXPECT_EQ(RoundOf(20'000, 19'000, 500), 19'500);
}

}  // namespace
}  // namespace console
