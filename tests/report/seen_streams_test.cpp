#include "report/seen_streams.h"

#include <gtest/gtest.h>

#include "support/broken_bus.h"

namespace {

using packetroutines::SeenStreams;

TEST(SeenStreams, HoldTheEmptyIdFromTheBeginning) {
  const SeenStreams seen;
  EXPECT_TRUE(seen.Holds(""));
  EXPECT_FALSE(seen.Holds("MU01"));
  EXPECT_FALSE(seen.Holds(" "));
}

TEST(SeenStreams, HoldWhatIsPartOfAnEarlierIdButNotTheOtherWayRound) {
  SeenStreams seen;
  seen.Append("MU01A");
  EXPECT_TRUE(seen.Holds("MU01"));
  EXPECT_TRUE(seen.Holds("U"));
  EXPECT_FALSE(seen.Holds("MU01AB"));
  EXPECT_FALSE(seen.Holds("mu01"));
}

TEST(SeenStreams, HoldWhatReachesOverTheBlankBetweenTwo) {
  SeenStreams seen;
  for (const char* id : {"AB", "CD", "EF"}) seen.Append(id);
  EXPECT_TRUE(seen.Holds("B C"));
  EXPECT_TRUE(seen.Holds(" AB CD E"));
  EXPECT_FALSE(seen.Holds("AB EF"));
  EXPECT_FALSE(seen.Holds("EF "));
}

TEST(SeenStreams, AreEmptyAfterAClear) {
  SeenStreams seen;
  seen.Append("AB");
  seen.Append("CD");
  seen.Clear();
  EXPECT_FALSE(seen.Holds("AB"));
  EXPECT_FALSE(seen.Holds("B C"));
}

/// IDs of few letters and blanks, so that they overlap as often as can be.
std::string Scrap(support::Dice& dice) {
  std::string id;
  for (std::uint32_t length = dice.Below(6); id.size() < length;) id += "AB  C"[dice.Below(5)];
  return id;
}

TEST(SeenStreams, HoldWhatTheWholeTextHolds) {
  support::Dice dice(7);
  for (int session = 0; session < 300; ++session) {
    SeenStreams seen;
    std::string text;
    for (int frame = 0; frame < 40; ++frame) {
      const std::string id = Scrap(dice) + (dice.OneIn(3) ? Scrap(dice) : "");
      ASSERT_EQ(seen.Holds(id), text.find(id) != std::string::npos) << "'" << id << "' in " << text;
      seen.Append(id);
      text += " " + id;
    }
  }
}

TEST(SeenStreams, FindAcrossThePiecesOfALongSession) {
  SeenStreams seen;
  std::string text;
  for (int frame = 0; frame < 12'000; ++frame) {
    const std::string id = "MU" + std::to_string(frame);
    seen.Append(id);
    text += " " + id;
  }
  // 65536 characters are a piece: its last and the next one's first are looked for together.
  ASSERT_GT(text.size(), 65'700U);
  for (std::size_t at = 65'490; at < 65'560; ++at) {
    EXPECT_TRUE(seen.Holds(text.substr(at, 40))) << at;
  }
  EXPECT_FALSE(seen.Holds("MU7 MU9"));
}

TEST(SeenStreams, KeepEachIdOnceAndTheOrderOfAMillionFrames) {
  SeenStreams seen;
  seen.Append("FIRST");
  for (std::size_t frame = 0; frame < SeenStreams::LongestOrder + 10; ++frame) {
    seen.Append(frame % 2 == 0 ? "A" : "B");
  }
  EXPECT_EQ(seen.Count(), 3U);
  EXPECT_TRUE(seen.Holds("FIRST"));
  EXPECT_TRUE(seen.Holds(" FIRST"));
  EXPECT_TRUE(seen.Holds("A B A B"));
  EXPECT_FALSE(seen.Holds("FIRST A"));
  for (const char* id : {"X", "Y", "Z"}) seen.Append(id);
  EXPECT_TRUE(seen.Holds("A X Y Z") || seen.Holds("B X Y Z"));
}

}  // namespace
