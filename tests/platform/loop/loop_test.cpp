#include "platform/loop/loop.h"

#include <gmock/gmock.h>

#include <functional>
#include <stdexcept>

#include "base/failure.h"
#include "platform/loop/waiting_queue.h"
#include "support/fake_platform.h"

namespace {

using namespace std::chrono_literals;
using platform::QueueAlarm;
using testing::ElementsAre;

/// A source that has a given number of frames at hand.
class FrameStock : public platform::FrameDelivery {
 public:
  bool DeliverOne() override {
    if (Left == 0) return false;
    --Left;
    ++Delivered;
    if (OnFrame) OnFrame();
    return true;
  }
  int Left = 0;
  int Delivered = 0;
  std::function<void()> OnFrame;
};

/// The loop of a program without a window, on a clock that its waits move.
class LoopScene : public testing::Test {
 protected:
  void RunFor(std::chrono::milliseconds time) {
    bool over = false;
    QueueAlarm end(queue);
    end.Rings = [&] { over = true; };
    end.Set(time);
    queue.RunUntil([&] { return over; });
  }

  support::Journal journal;
  support::ManualClock clock;
  support::FakeDialogs dialogs{journal};
  std::vector<int> exits;
  platform::RunningProgram program{[this] { journal.emplace_back("flush"); },
                                   [this](int code) { exits.push_back(code); }};
  platform::Guard guard{dialogs, program};
  platform::WaitingQueue queue{clock, guard,
                               [this](std::chrono::nanoseconds time) { clock.Advance(time); }};
  QueueAlarm forTimers{queue};
  QueueAlarm forFrames{queue};
  FrameStock stock;
  platform::Loop loop{{clock, stock, guard, forTimers, forFrames}};
  platform::Timer timer{loop.Timers};
};

TEST_F(LoopScene, FiresATimerAtItsTime) {
  std::vector<std::chrono::nanoseconds> fired;
  const auto begun = clock.Now();
  timer.Elapsed = [&] { fired.push_back(clock.Now() - begun); };
  timer.Interval = 30;
  timer.Enabled = true;

  RunFor(100ms);

  EXPECT_THAT(fired, ElementsAre(30ms, 60ms, 90ms));
}

TEST_F(LoopScene, LetsOtherTimersFireInsideOfAnEventThatPumps) {
  platform::Timer other(loop.Timers);
  bool inside = false;
  bool otherInside = false;
  timer.Elapsed = [&] {
    timer.Enabled = false;
    inside = true;
    queue.WaitMs(10);
    queue.Pump();
    inside = false;
  };
  other.Elapsed = [&] { otherInside = inside; };
  for (platform::Timer* each : {&timer, &other}) {
    each->Interval = 20;
    each->Enabled = true;
  }

  RunFor(30ms);

  EXPECT_TRUE(otherInside);
}

TEST_F(LoopScene, DeliversFramesWhileTheSourceRunsAlone) {
  stock.Left = 100;
  RunFor(10ms);
  EXPECT_EQ(stock.Delivered, 0);

  stock.Running(true);
  RunFor(10ms);
  EXPECT_EQ(stock.Delivered, 100);

  stock.Left = 100;
  stock.Running(false);
  RunFor(10ms);
  EXPECT_EQ(stock.Delivered, 100);
}

TEST_F(LoopScene, EndsATurnOfFramesAfterFiveMilliseconds) {
  int inATurn = 0;
  int most = 0;
  stock.OnFrame = [&] {
    clock.Advance(1ms);
    most = std::max(most, ++inATurn);
  };
  timer.Elapsed = [&] { inATurn = 0; };
  timer.Interval = 1;
  timer.Enabled = true;
  stock.Left = 100;
  stock.Running(true);

  RunFor(200ms);

  EXPECT_EQ(stock.Delivered, 100);
  EXPECT_EQ(most, 5);
}

TEST_F(LoopScene, NestsNoMoreThanSixteenTurnsOfFrames) {
  int depth = 0;
  int deepest = 0;
  stock.OnFrame = [&] {
    deepest = std::max(deepest, ++depth);
    for (int pumps = 0; pumps < 3; ++pumps) {
      queue.WaitMs(1);
      queue.Pump();
    }
    --depth;
  };
  stock.Left = 40;
  stock.Running(true);

  RunFor(1s);

  EXPECT_EQ(stock.Delivered, 40);
  EXPECT_EQ(deepest, 16);
}

TEST_F(LoopScene, StandsStillWhileABoxStands) {
  struct Store : platform::Holdable {
    void Hold() override { ++Holds; }
    void Release() override { --Holds; }
    int Holds = 0;
  } store;
  loop.AlsoHold(store);
  int fired = 0;
  timer.Elapsed = [&] { ++fired; };
  timer.Interval = 30;
  timer.Enabled = true;
  stock.Left = 10;
  stock.Running(true);
  RunFor(20ms);
  stock.Left = 10;

  loop.BoxStands(true);
  loop.BoxStands(true);
  loop.BoxStands(false);
  RunFor(1s);
  EXPECT_EQ(fired, 0);
  EXPECT_EQ(stock.Delivered, 10);
  EXPECT_EQ(store.Holds, 1);

  loop.BoxStands(false);
  EXPECT_EQ(store.Holds, 0);
  RunFor(9ms);
  EXPECT_EQ(fired, 0) << "its count stood too";
  EXPECT_EQ(stock.Delivered, 20);
  RunFor(1ms);
  EXPECT_EQ(fired, 1);
}

TEST_F(LoopScene, EndsOnAFailureThatNoTrapTookWithItsBox) {
  timer.Elapsed = [] { throw platform::Failure(platform::failure::DeviceIo); };
  timer.Interval = 10;
  timer.Enabled = true;
  stock.Left = 1'000'000'000;
  stock.Running(true);
  stock.OnFrame = [&] { clock.Advance(1ms); };

  RunFor(1s);

  ASSERT_EQ(dialogs.Shown.size(), 1U);
  EXPECT_TRUE(dialogs.Shown[0].Text.starts_with("Run-time error '57':\r\n\r\n"));
  EXPECT_THAT(exits, ElementsAre(platform::Guard::FailureExitCode));
  EXPECT_THAT(journal, ElementsAre("box Vornik", "flush"));
  bool entered = false;
  guard([&] { entered = true; });
  EXPECT_FALSE(entered);
}

TEST_F(LoopScene, EndsWhereMemoryRunsOutInAnEvent) {
  guard([] { throw std::bad_alloc(); });
  ASSERT_EQ(dialogs.Shown.size(), 1U);
  EXPECT_EQ(dialogs.Shown[0].Text, "Run-time error '7':\r\n\r\nOut of memory");
  EXPECT_TRUE(guard.Closed());
}

TEST_F(LoopScene, EndsOnWhatIsNoFailureOfTheProgram) {
  guard([] { throw std::logic_error("not foreseen"); });
  ASSERT_EQ(dialogs.Shown.size(), 1U);
  EXPECT_EQ(dialogs.Shown[0].Text, "Run-time error '51':\r\n\r\nnot foreseen");
  EXPECT_THAT(exits, ElementsAre(platform::Guard::FailureExitCode));
}

TEST_F(LoopScene, AnEndInsideAPumpLeavesTheHandlerThatPumped) {
  platform::Timer outer(loop.Timers);
  bool wentOn = false;
  timer.Elapsed = [&] { program.End(); };
  outer.Elapsed = [&] {
    queue.WaitMs(20);
    queue.Pump();
    wentOn = true;
  };
  outer.Interval = 10;
  outer.Enabled = true;
  timer.Interval = 20;
  timer.Enabled = true;

  RunFor(1s);

  EXPECT_FALSE(wentOn);
  EXPECT_THAT(exits, ElementsAre(0));
}

TEST_F(LoopScene, AnAlarmRingsOnceAndNotWhereItWasStopped) {
  int rings = 0;
  QueueAlarm alarm(queue);
  alarm.Rings = [&] { ++rings; };
  alarm.Set(10ms);
  alarm.Set(20ms);
  RunFor(19ms);
  EXPECT_EQ(rings, 0);
  RunFor(100ms);
  EXPECT_EQ(rings, 1);

  alarm.Set(10ms);
  alarm.Stop();
  RunFor(100ms);
  EXPECT_EQ(rings, 1);
}

TEST_F(LoopScene, AnAlarmBringsNothingBehindTheEndOfItsLoop) {
  QueueAlarm ofTimers(queue);
  QueueAlarm ofFrames(queue);
  {
    const platform::Loop over{{clock, stock, guard, ofTimers, ofFrames}};
    EXPECT_TRUE(ofTimers.Rings);
    EXPECT_TRUE(ofFrames.Rings);
  }
  EXPECT_FALSE(ofTimers.Rings);
  EXPECT_FALSE(ofFrames.Rings);
}

TEST_F(LoopScene, APauseOfNoTimeIsNone) {
  std::vector<std::chrono::nanoseconds> waits;
  platform::WaitingQueue idle{clock, guard,
                              [&](std::chrono::nanoseconds time) { waits.push_back(time); }};
  for (const std::int32_t ms : {0, -5, 1}) idle.WaitMs(ms);
  EXPECT_THAT(waits, ElementsAre(1ms));
}

TEST_F(LoopScene, AnAlarmThatSetsItselfAtOnceLetsThePumpEnd) {
  int rings = 0;
  QueueAlarm alarm(queue);
  alarm.Rings = [&] {
    ++rings;
    alarm.Set(0ms);
  };
  alarm.Set(0ms);

  queue.Pump();

  EXPECT_EQ(rings, 1);
}

}  // namespace
