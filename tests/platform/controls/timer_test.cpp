#include "platform/controls/timer.h"

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

#include "support/fake_platform.h"

namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

/// Two timers on a played platform; their events go into the journal.
class Timer : public testing::Test {
 protected:
  Timer() {
    timer.Elapsed = [this] { platform.Journal.emplace_back("timer"); };
    other.Elapsed = [this] { platform.Journal.emplace_back("other"); };
  }

  void Elapse(int ms) { platform.Elapse(milliseconds(ms)); }
  /// The thread is busy: time passes, and no timer can fire.
  void Busy(int ms) { platform.Clock.Advance(milliseconds(ms)); }
  std::size_t Fired() const { return platform.Journal.size(); }
  static void Run(platform::Timer& which, int interval) {
    which.Interval = interval;
    which.Enabled = true;
  }

  support::FakePlatform platform;
  platform::Timer timer{platform.Timers};
  platform::Timer other{platform.Timers};
};

TEST_F(Timer, ElapsesWhenItsIntervalIsOverAndNotBefore) {
  Run(timer, 100);

  Elapse(99);
  EXPECT_EQ(Fired(), 0U);
  Elapse(1);
  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, ElapsesEachIntervalWhileEnabled) {
  Run(timer, 100);

  Elapse(350);
  EXPECT_EQ(Fired(), 3U);
  timer.Enabled = false;
  Elapse(1000);
  EXPECT_EQ(Fired(), 3U);
}

TEST_F(Timer, StartsDisabled) {
  timer.Interval = 100;

  Elapse(1000);

  EXPECT_EQ(Fired(), 0U);
}

TEST_F(Timer, NeverElapsesWithAnIntervalOfZero) {
  Run(timer, 0);

  Elapse(1000);

  EXPECT_EQ(Fired(), 0U);
  EXPECT_FALSE(platform.Timers.NextDue());
}

TEST_F(Timer, WritingTheIntervalStartsTheCountAnewAlsoWithTheSameValue) {
  Run(timer, 100);

  Elapse(60);
  timer.Interval = 100;
  Elapse(99);
  EXPECT_EQ(Fired(), 0U);
  Elapse(1);
  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, EnablingARunningTimerDoesNotStartTheCountAnew) {
  Run(timer, 100);

  Elapse(60);
  timer.Enabled = true;
  Elapse(40);

  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, EnablingAStoppedTimerStartsTheCountAnew) {
  Run(timer, 100);

  Elapse(60);
  timer.Enabled = false;
  timer.Enabled = true;
  Elapse(99);
  EXPECT_EQ(Fired(), 0U);
  Elapse(1);
  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, StaysSilentAfterItDisabledItselfInItsOwnEvent) {
  timer.Elapsed = [this] {
    platform.Journal.emplace_back("timer");
    timer.Enabled = false;
  };
  Run(timer, 100);

  Elapse(1000);

  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, CountsFromItsOwnEventWhereTheIntervalIsWrittenThere) {
  timer.Elapsed = [this] {
    platform.Journal.emplace_back("timer");
    timer.Interval = 500;
  };
  Run(timer, 100);

  Elapse(100);
  Elapse(499);
  EXPECT_EQ(Fired(), 1U);
  Elapse(1);
  EXPECT_EQ(Fired(), 2U);
}

TEST_F(Timer, MissedPeriodsAreNotMadeUp) {
  Run(timer, 100);

  Busy(1050);
  platform.Timers.FireDue();
  EXPECT_EQ(Fired(), 1U);
  platform.Timers.FireDue();
  EXPECT_EQ(Fired(), 1U);
  EXPECT_EQ(platform.Timers.NextDue(), platform.Clock.Now() + milliseconds(100));
}

TEST_F(Timer, KeepsItsBeatWhereItIsServedALittleLate) {
  Run(timer, 100);

  Busy(130);
  platform.Timers.FireDue();

  EXPECT_EQ(platform.Timers.NextDue(), platform.Clock.Now() + milliseconds(70));
}

TEST_F(Timer, DoesNotFireAgainInsideItsOwnEvent) {
  timer.Elapsed = [this] {
    platform.Journal.emplace_back("in");
    Busy(500);
    if (platform.Journal.size() == 1) platform.Events.Pump();
    platform.Journal.emplace_back("out");
  };
  Run(timer, 100);

  Elapse(100);

  EXPECT_THAT(platform.Journal, ElementsAre("in", "pump", "out"));
}

TEST_F(Timer, AnotherTimerFiresInsideTheEvent) {
  timer.Elapsed = [this] {
    platform.Journal.emplace_back("in");
    Busy(500);
    platform.Events.Pump();
    platform.Journal.emplace_back("out");
  };
  Run(timer, 100);
  Run(other, 300);

  Elapse(100);

  EXPECT_THAT(platform.Journal, ElementsAre("in", "pump", "other", "out"));
}

TEST_F(Timer, FiresAgainAfterAnEventThatFailed) {
  timer.Elapsed = [this] {
    platform.Journal.emplace_back("timer");
    throw std::runtime_error("failed");
  };
  Run(timer, 100);

  EXPECT_THROW(Elapse(100), std::runtime_error);
  EXPECT_THROW(Elapse(100), std::runtime_error);

  EXPECT_EQ(Fired(), 2U);
}

TEST_F(Timer, TwoTimersFireInTheOrderInWhichTheyAreDue) {
  Run(timer, 200);
  Run(other, 150);

  Busy(1000);
  platform.Timers.FireDue();

  EXPECT_THAT(platform.Journal, ElementsAre("other", "timer"));
}

TEST_F(Timer, ATimerDisabledByAnEarlierOneDoesNotFire) {
  timer.Elapsed = [this] { other.Enabled = false; };
  Run(timer, 100);
  Run(other, 150);

  Busy(1000);
  platform.Timers.FireDue();

  EXPECT_EQ(Fired(), 0U);
}

TEST_F(Timer, TheQueueKnowsTheEarliestTime) {
  EXPECT_FALSE(platform.Timers.NextDue());

  Run(timer, 200);
  Run(other, 150);
  EXPECT_EQ(platform.Timers.NextDue(), platform.Clock.Now() + milliseconds(150));
  other.Enabled = false;
  EXPECT_EQ(platform.Timers.NextDue(), platform.Clock.Now() + milliseconds(200));
}

TEST_F(Timer, TheQueueForgetsATimerThatIsGone) {
  auto gone = std::make_unique<platform::Timer>(platform.Timers);
  Run(*gone, 100);

  gone.reset();

  EXPECT_FALSE(platform.Timers.NextDue());
}

TEST_F(Timer, TheQueueTellsWheneverItsNextTimeMayHaveChanged) {
  int told = 0;
  platform.Timers.Rescheduled = [&] { ++told; };

  timer.Interval = 100;
  EXPECT_EQ(told, 1);
  timer.Enabled = true;
  EXPECT_EQ(told, 2);
  timer.Enabled = true;
  EXPECT_EQ(told, 2);
  Elapse(100);
  EXPECT_EQ(told, 3);
  timer.Enabled = false;
  EXPECT_EQ(told, 4);
}

TEST_F(Timer, AHeldQueueFiresNothing) {
  Run(timer, 100);
  Run(other, 500);
  Busy(100);

  platform.Timers.Hold();
  EXPECT_FALSE(platform.Timers.NextDue());
  platform.Timers.FireDue();
  Busy(1000);
  platform.Timers.FireDue();

  EXPECT_EQ(Fired(), 0U);
}

TEST_F(Timer, GoesOnCountingAtTheReleaseWhereItStood) {
  Run(timer, 100);
  Elapse(60);

  platform.Timers.Hold();
  Elapse(1000);
  platform.Timers.Release();

  EXPECT_EQ(platform.Timers.NextDue(), platform.Clock.Now() + milliseconds(40));
  Elapse(39);
  EXPECT_EQ(Fired(), 0U);
  Elapse(1);
  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, CountsFromTheReleaseWhereItWasStartedInAHold) {
  platform.Timers.Hold();
  Elapse(500);
  Run(timer, 100);
  Elapse(500);
  platform.Timers.Release();

  Elapse(99);
  EXPECT_EQ(Fired(), 0U);
  Elapse(1);
  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, CountsOnAfterEachOfManyHolds) {
  Run(timer, 100);
  for (int i = 0; i < 3; ++i) {
    platform.Timers.Hold();
    Elapse(1000);
    platform.Timers.Release();
    Elapse(30);
  }
  EXPECT_EQ(Fired(), 0U);

  Elapse(10);
  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, TheOutermostReleaseEndsTheHold) {
  Run(timer, 100);
  platform.Timers.Hold();
  platform.Timers.Hold();

  platform.Timers.Release();
  EXPECT_FALSE(platform.Timers.NextDue());
  Elapse(1000);
  platform.Timers.Release();

  EXPECT_EQ(platform.Timers.NextDue(), platform.Clock.Now() + milliseconds(100));
}

TEST_F(Timer, AHoldInsideOfAnEventPutsOffTheOthers) {
  timer.Elapsed = [this] {
    platform.Timers.Hold();
    Elapse(1000);
    platform.Timers.Release();
    timer.Enabled = false;
  };
  Run(timer, 100);
  Run(other, 150);

  Elapse(100);
  EXPECT_EQ(Fired(), 0U);
  Elapse(49);
  EXPECT_EQ(Fired(), 0U);
  Elapse(1);
  EXPECT_EQ(Fired(), 1U);
}

TEST_F(Timer, TheQueueTellsOfAHoldAndOfItsRelease) {
  Run(timer, 100);
  int told = 0;
  platform.Timers.Rescheduled = [&] { ++told; };

  platform.Timers.Hold();
  EXPECT_EQ(told, 1);
  platform.Timers.Release();
  EXPECT_EQ(told, 2);
}

}  // namespace
