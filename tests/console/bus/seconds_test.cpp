#include "console/bus/seconds.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/manual_clock.h"

namespace console {
namespace {

using namespace std::chrono_literals;
using Time = Seconds::Time;

class SecondsScene : public testing::Test {
 protected:
  /// A frame each millisecond, as they come; in between the listener rests.
  void FramesFor(std::chrono::milliseconds time) {
    for (std::chrono::milliseconds i = 0ms; i < time; ++i) {
      seconds_.Frame(clock_.WallTime());
      clock_.Advance(1ms);
      seconds_.Rest(clock_.WallTime());
    }
  }
  void SilenceFor(std::chrono::milliseconds time) {
    for (std::chrono::milliseconds i = 0ms; i < time; i += 10ms) {
      clock_.Advance(10ms);
      seconds_.Rest(clock_.WallTime());
    }
  }

  support::ManualClock clock_;
  std::vector<Time> over_;
  Time began_ = clock_.WallTime();
  Seconds seconds_{clock_, [this](Time at) { over_.push_back(at - began_); }};
};

TEST_F(SecondsScene, EndByTheTimesOfArrival) {
  FramesFor(3500ms);
  EXPECT_EQ(over_, (std::vector<Time>{1s, 2s, 3s}));
}

TEST_F(SecondsScene, GoOnWhereNothingComes) {
  FramesFor(500ms);
  SilenceFor(2900ms);
  EXPECT_EQ(over_, (std::vector<Time>{1s, 2s, 3s}));
}

TEST_F(SecondsScene, EndWhereNothingCameAtAll) {
  SilenceFor(1400ms);
  EXPECT_EQ(over_.size(), 1U);
}

TEST_F(SecondsScene, AHoleInAFileHasItsSeconds) {
  seconds_.Frame(began_);
  seconds_.Frame(began_ + 5500ms);
  EXPECT_EQ(over_, (std::vector<Time>{1s, 2s, 3s, 4s, 5s}));
}

TEST_F(SecondsScene, AClockThatIsSetOnIsNoHourOfSeconds) {
  FramesFor(500ms);
  clock_.Began += 1h;
  FramesFor(1500ms);
  EXPECT_EQ(over_, (std::vector<Time>{1s, 1h + 1500ms}));
}

TEST_F(SecondsScene, AClockThatIsKnownToBeSetChangesNothing) {
  FramesFor(500ms);
  clock_.Began += 1h;
  seconds_.SetClock(1h);
  FramesFor(1600ms);
  EXPECT_EQ(over_, (std::vector<Time>{1h + 1s, 1h + 2s}));
}

TEST_F(SecondsScene, AClockThatIsSetBackIsNoHourWithoutASecond) {
  FramesFor(500ms);
  clock_.Began -= 1h;
  FramesFor(3000ms);
  ASSERT_EQ(over_.size(), 3U);
  EXPECT_EQ(over_[1] - over_[0], Time(1s));
  EXPECT_EQ(over_[2] - over_[1], Time(1s));
}

}  // namespace
}  // namespace console
