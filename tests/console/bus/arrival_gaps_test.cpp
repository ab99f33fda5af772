#include "console/bus/arrival_gaps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace console {
namespace {

using std::chrono::microseconds;

TEST(ArrivalGaps, TellSmallestMeanAndGreatest) {
  ArrivalGaps gaps;
  for (const int gap : {250, 240, 300, 210}) gaps.Add(microseconds(gap));

  EXPECT_EQ(gaps.Count(), 4U);
  EXPECT_EQ(gaps.Smallest(), microseconds(210));
  EXPECT_EQ(gaps.Greatest(), microseconds(300));
  EXPECT_DOUBLE_EQ(gaps.Mean(), 250);
}

TEST(ArrivalGaps, AThousandthMayBeLongerThanWhatTheOthersStayBelow) {
  ArrivalGaps gaps;
  for (int i = 0; i < 999; ++i) gaps.Add(microseconds(250));
  gaps.Add(microseconds(5000));
  EXPECT_EQ(gaps.Below(999), microseconds(250));
  EXPECT_EQ(gaps.Below(1000), microseconds(5000));

  gaps.Add(microseconds(5000));
  EXPECT_EQ(gaps.Below(999), microseconds(5000)) << "two of 1001 are more than a thousandth";
}

TEST(ArrivalGaps, AreOrderedAsASortedListOfThemIs) {
  std::mt19937 random(1);
  std::lognormal_distribution<double> lengths(7, 3);
  ArrivalGaps gaps;
  std::vector<std::int64_t> plain;
  for (int i = 0; i < 20'000; ++i) {
    plain.push_back(static_cast<std::int64_t>(lengths(random)));
    gaps.Add(microseconds(plain.back()));
  }
  std::sort(plain.begin(), plain.end());
  for (const std::uint32_t ofThousand : {1U, 100U, 500U, 900U, 990U, 999U, 1000U}) {
    const std::int64_t exact = plain[plain.size() * ofThousand / 1000 - 1];
    const std::int64_t told = gaps.Below(ofThousand).count();
    EXPECT_GE(told, exact) << ofThousand;
    EXPECT_LE(told, exact < 8192 ? exact : exact + exact / 100) << ofThousand;
  }
}

TEST(ArrivalGaps, AClockThatIsSetMakesNoNegativeGapAndAYearNoTrouble) {
  ArrivalGaps gaps;
  gaps.Add(microseconds(-3'600'000'000));
  gaps.Add(std::chrono::hours(24 * 365));

  EXPECT_EQ(gaps.Smallest(), microseconds(0));
  EXPECT_EQ(gaps.Greatest(), std::chrono::hours(24 * 365));
  EXPECT_EQ(gaps.Below(500), microseconds(0));
}

TEST(ArrivalGaps, BeginAnew) {
  ArrivalGaps gaps;
  EXPECT_EQ(gaps.Below(999), microseconds(0)) << "there is none yet";
  gaps.Add(microseconds(9000));
  gaps.Clear();
  gaps.Add(microseconds(250));

  EXPECT_EQ(gaps.Count(), 1U);
  EXPECT_EQ(gaps.Greatest(), microseconds(250));
  EXPECT_EQ(gaps.Below(1000), microseconds(250));
}

}  // namespace
}  // namespace console
