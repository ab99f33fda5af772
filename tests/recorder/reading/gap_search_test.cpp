#include "recorder/reading/gap_search.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "support/failures.h"

namespace {

using packetroutines::GapSearch;
using packetroutines::LongestRun;
using platform::failure::Overflow;
using platform::failure::SubscriptOutOfRange;
using Values = std::vector<std::int32_t>;

struct Found {
  std::int32_t Lost = 0;
  LongestRun Run;
};

Found Search(const Values& ramp) {
  GapSearch gaps;
  for (const std::int32_t value : ramp) gaps.Line(value);
  const LongestRun run = gaps.Finish();
  EXPECT_EQ(gaps.Lines(), static_cast<std::int32_t>(ramp.size()));
  return {gaps.Lost(), run};
}

/// The search word for word, with its table.
Found SearchByTable(const Values& ramp) {
  Values table(2'000'001, -1);
  table[0] = 0;
  std::size_t lost = 0;
  std::int32_t expected = ramp[0];
  for (std::size_t i = 0; i < ramp.size(); ++i) {
    while (expected != ramp[i]) {
      if (++expected > 3999) expected = 0;
      table.at(++lost) = static_cast<std::int32_t>(i);
    }
    if (++expected > 3999) expected = 0;
  }
  const auto count = static_cast<std::int32_t>(ramp.size());
  table.at(lost + 1) = count;
  LongestRun run{count, 1, count};
  if (lost > 0) {
    run.Longest = 0;
    for (std::size_t k = 1; k <= lost + 1; ++k) {
      const std::int32_t d = table[k] - table[k - 1];
      if (d > run.Longest) run = {d - 1, table[k - 1] + 1, table[k]};
    }
  }
  return {static_cast<std::int32_t>(lost), run};
}

void ExpectSame(const Found& found, const Found& wanted) {
  EXPECT_EQ(found.Lost, wanted.Lost);
  EXPECT_EQ(found.Run.Longest, wanted.Run.Longest);
  EXPECT_EQ(found.Run.First, wanted.Run.First);
  EXPECT_EQ(found.Run.Last, wanted.Run.Last);
}

TEST(GapSearch, FindsNothingInACleanRampWhereverItBegins) {
  for (const std::int32_t first : {0, 1, 1234, 3999}) {
    Values ramp;
    for (std::int32_t i = 0; i < 9000; ++i) ramp.push_back((first + i) % 4000);
    ExpectSame(Search(ramp), {0, {9000, 1, 9000}});
  }
}

TEST(GapSearch, CountsEachStepOfAJumpAheadAsALostSample) {
  EXPECT_EQ(Search({100, 103}).Lost, 2);
  EXPECT_EQ(Search({3999, 1}).Lost, 1);
}

TEST(GapSearch, CountsAJumpBackTheWayRoundTheRamp) {
  // 2999 was there, so 3000 to 3999 and 0 to 1999 are missing.
  EXPECT_EQ(Search({2999, 2000}).Lost, 3000);
}

TEST(GapSearch, TakesTheSameValueTwiceForAWholeRampWithoutOne) {
  EXPECT_EQ(Search({17, 17}).Lost, 3999);
}

TEST(GapSearch, ReportsALengthOneShortOfTheRun) {
  ExpectSame(Search({0, 1, 2, 3, 9}), {5, {3, 1, 4}});
}

TEST(GapSearch, LetsTheLastOfEqualRunsWin) {
  ExpectSame(Search({0, 1, 2, 10, 11, 12, 20, 21, 22}), {14, {2, 7, 9}});
}

TEST(GapSearch, LetsALaterRunWinOnlyWhereItIsAtLeastAsLong) {
  ExpectSame(Search({0, 1, 2, 10, 11}), {7, {2, 1, 3}});
}

TEST(GapSearch, FindsARunOfOneLine) {
  ExpectSame(Search({0, 2}), {1, {0, 2, 2}});
}

TEST(GapSearch, LooksForAValueBeyondTheRampUntilItsTableIsFull) {
  for (const std::int32_t odd : {4000, 32767, 2'000'000'000, -1}) {
    EXPECT_EQ(support::FailureOf([&] { Search({0, odd}); }), SubscriptOutOfRange) << odd;
  }
}

TEST(GapSearch, ComesBackFromAFirstValueBeyondTheRamp) {
  EXPECT_EQ(Search({5000, 0, 1}).Lost, 0);
  EXPECT_EQ(Search({-3, -2, -1, 0, 1}).Lost, 0);
  EXPECT_EQ(Search({-3, 1}).Lost, 3);
}

TEST(GapSearch, FollowsTheRoundOfAnotherRate) {
  GapSearch gaps(4800);
  for (std::int32_t i = 0; i < 9600; ++i) {
    if (i != 4799 && i != 5000) gaps.Line(i % 4800);
  }
  gaps.Finish();

  EXPECT_EQ(gaps.Lost(), 2);
}

TEST(GapSearch, RefusesAFirstValueThatIsNo16BitInteger) {
  EXPECT_EQ(Search({32766}).Lost, 0);
  // The value behind it is none.
  EXPECT_EQ(support::FailureOf([] { Search({32767}); }), Overflow);
  EXPECT_EQ(support::FailureOf([] { Search({32768}); }), Overflow);
  EXPECT_EQ(support::FailureOf([] { Search({-32769}); }), Overflow);
}

/// 500 times the whole ramp but one, and `more` samples: 1999500 + more.
Values LosingNearlyTwoMillion(std::int32_t more) {
  Values ramp(501, 0);
  ramp.push_back(1 + more);
  return ramp;
}

TEST(GapSearch, EndsWithTheEntryBehindTheLastOfItsTable) {
  EXPECT_EQ(Search(LosingNearlyTwoMillion(499)).Lost, 1'999'999);
  EXPECT_EQ(support::FailureOf([] { Search(LosingNearlyTwoMillion(500)); }), SubscriptOutOfRange);
  EXPECT_EQ(support::FailureOf([] { Search(LosingNearlyTwoMillion(501)); }), SubscriptOutOfRange);
}

TEST(GapSearch, AgreesWithASearchByTableOnRandomGaps) {
  std::mt19937 random(20240309);
  const auto upTo = [&](std::int32_t last) {
    return std::uniform_int_distribution<std::int32_t>(0, last)(random);
  };
  for (int round = 0; round < 200; ++round) {
    const std::int32_t rarity = 1 + upTo(60);
    Values ramp;
    std::int32_t value = upTo(3999);
    for (std::int32_t i = 1 + upTo(400); i > 0; --i) {
      ramp.push_back(value);
      const bool gap = upTo(rarity) == 0;
      value = (value + 1 + (gap ? upTo(round % 2 == 0 ? 3 : 3999) : 0)) % 4000;
    }
    ExpectSame(Search(ramp), SearchByTable(ramp));
    if (HasFailure()) FAIL() << "round " << round;
  }
}

}  // namespace
