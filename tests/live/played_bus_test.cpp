// The bus that the scenes listen to is what it says.

#include "live/played_bus.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "live/scenes/wire_tap.h"

namespace {

using live::Frame;
using live::PlayedBus;

class BusOnTheWire : public ::testing::Test {
 protected:
  static constexpr std::size_t SourceEnd = 11;

  void SetUp() override {
    const std::string reason = live::WhyNoWire();
    if (!reason.empty()) GTEST_SKIP() << reason;
    live::LayWire();
  }
  void TearDown() override {
    if (live::WhyNoWire().empty()) live::CutWire();
  }
  /// What came while a bus was played to its end, and what it says that it sent.
  void Hear(const std::string& profile, const std::string& arguments) {
    live::WireTap tap("ether proto 0x88ba");
    PlayedBus bus(profile, arguments);
    told_ = bus.Sent();
    tap.TakeAllTo(heard_);
    ASSERT_EQ(tap.Missed(), 0U);
  }
  /// The counter of a frame with one ASDU of an ID of six characters.
  static unsigned CountOf(const Frame& frame) { return frame[41] * 256U + frame[42]; }

  std::string told_;
  std::vector<Frame> heard_;
};

TEST_F(BusOnTheWire, IsLockedToOneClockAndTellsWhatItSent) {
  Hear("locked", "--senders 3 --duration 0.25");
  EXPECT_EQ(told_, "{\"BAY-01\": 1000, \"BAY-02\": 1000, \"BAY-03\": 1000}\n");
  ASSERT_EQ(heard_.size(), 3000U);
  for (std::size_t i = 0; i < heard_.size(); ++i) {
    ASSERT_EQ(heard_[i][SourceEnd], i % 3 + 1) << "frame " << i;
    ASSERT_EQ(CountOf(heard_[i]), i / 3) << "frame " << i;
  }
}

TEST_F(BusOnTheWire, SendsEveryFrameTwiceAndSwapsSome) {
  Hear("doubled", "--senders 1 --duration 0.25");
  ASSERT_EQ(heard_.size(), 2000U);
  int swapped = 0;
  std::set<unsigned> counts;
  for (std::size_t i = 0; i < heard_.size(); i += 2) {
    ASSERT_EQ(CountOf(heard_[i]), CountOf(heard_[i + 1])) << "frame " << i;
    EXPECT_NE(heard_[i], heard_[i + 1]) << "each network has its trailer";
    if (!counts.empty() && CountOf(heard_[i]) < *counts.rbegin()) ++swapped;
    counts.insert(CountOf(heard_[i]));
  }
  EXPECT_EQ(counts.size(), 1000U);
  EXPECT_EQ(swapped, 20);
}

TEST_F(BusOnTheWire, EndsWithItsReader) {
  // It would play for an hour, and who lets go of it waits for its end.
  const PlayedBus bus("locked");
}

}  // namespace
