// What the user, the clock and the bus can do inside the four pumps of a complete values block.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <functional>

#include "support/scene.h"
#include "support/watch.h"

namespace {

using support::FrameBytes;
using support::Scene;
using support::SvFrame;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

/// The pumps in their order.
enum Pump { BlockComplete = 1, BehindTheStop = 2, BehindTheEmptying = 3, BehindTheView = 4 };

/// A frame with all currents 3 A, up and down in turn.
FrameBytes Steady(int i) {
  SvFrame frame;
  frame.Count(static_cast<std::uint16_t>(i));
  for (std::size_t k = 0; k < 4; ++k) frame.Raw(k, i % 2 == 0 ? 3000 : -3000);
  return frame.Bytes();
}

/// A frame that shows in the row that it went to, and that lifts the block's value to 4.34 A.
FrameBytes Stranger() {
  return SvFrame().Count(3333).Raw(0, 63000).Bytes();
}

/// A values run whose block lacks its last frame; the run button can be pressed.
class ValuesBlock : public testing::TestWithParam<int> {
 protected:
  ValuesBlock() {
    scene.Start();
    scene.Main.Combo3.ListIndex = 2;
    scene.RunValues();
    scene.Receive(399, Steady);
    scene.Elapse(1s);
    scene.Journal.clear();
  }

  void At(int pump, std::function<void()> event) { scene.Events.AtPump(pump, std::move(event)); }
  void Complete() { scene.Receive(Steady(399)); }
  const std::string& Value() const { return scene.Main.Label5[0].Caption; }

  Scene scene;
};

TEST_F(ValuesBlock, HasFourPumpsOfItsOwn) {
  Complete();

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", "pump"));
  EXPECT_EQ(Value(), "3.00");
}

// A further frame.

TEST_F(ValuesBlock, TakesAFrameInItsFirstPumpIntoRowZero) {
  At(BlockComplete, [&] { scene.Receive(Stranger()); });

  Complete();

  EXPECT_EQ(scene.Block.SampleCount(0), 3333);
  EXPECT_EQ(scene.Block.SampleCount(1), 1);
  EXPECT_EQ(scene.State.BlockCount, 1);
  EXPECT_EQ(Value(), "4.34");
}

TEST_F(ValuesBlock, CountsAFrameInItsFirstPumpForTheNextBlockOfTheRealTimeMode) {
  scene.State.RealTimeMode = true;
  At(BlockComplete, [&] { scene.Receive(Stranger()); });

  Complete();
  scene.Receive(399, [](int i) { return Steady(1000 + i); });

  EXPECT_EQ(scene.Block.SampleCount(0), 3333);
  EXPECT_EQ(scene.Block.SampleCount(1), 1000);
  EXPECT_EQ(scene.State.BlockCount, 2);
}

class FrameWhileStopping : public ValuesBlock {};

TEST_P(FrameWhileStopping, GoesToRowZeroBeforeTheViewReadsIt) {
  At(GetParam(), [&] { scene.Capture.ReceiveInFlight(Stranger()); });

  Complete();

  EXPECT_EQ(scene.Block.SampleCount(0), 3333);
  EXPECT_EQ(Value(), "4.34");
}

INSTANTIATE_TEST_SUITE_P(Pumps, FrameWhileStopping,
                         testing::Values(BehindTheStop, BehindTheEmptying));

TEST_F(ValuesBlock, DropsAFrameBehindTheView) {
  At(BehindTheView, [&] { scene.Capture.ReceiveInFlight(Stranger()); });

  Complete();

  EXPECT_EQ(scene.Block.SampleCount(0), 0);
}

TEST_F(ValuesBlock, BeginsTheNextBurstAtRowZeroWhateverCameInThePumps) {
  At(BlockComplete, [&] { scene.Receive(Stranger()); });
  Complete();
  scene.Elapse(100ms);

  scene.Receive(Steady(2000));

  EXPECT_EQ(scene.Block.SampleCount(0), 2000);
}

// The run button.

TEST_F(ValuesBlock, IsNotShownWhereTheRunIsStoppedInItsFirstPump) {
  At(BlockComplete, [&] { scene.Main.CWButton4.Value = false; });

  Complete();

  // The second pump is that of the button, the last two are those of its stop.
  EXPECT_THAT(scene.Journal, ElementsAre("pump", "pump", "stop", "pump", "clear", "pump"));
  EXPECT_EQ(Value(), "0.00");
  EXPECT_FALSE(scene.Main.Timer2.Enabled);
  EXPECT_FALSE(scene.State.CaptureRunning);
}

class RunButton : public ValuesBlock {};

TEST_P(RunButton, LetsTheBlockBeShownAndEndsTheRun) {
  At(GetParam(), [&] { scene.Main.CWButton4.Value = false; });

  Complete();
  EXPECT_EQ(Value(), "3.00");
  EXPECT_FALSE(scene.State.LookingForValues);
  EXPECT_TRUE(scene.Main.Timer2.Enabled);

  scene.Elapse(10s);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_THAT(scene.Journal, Not(Contains("start")));
  EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
}

INSTANTIATE_TEST_SUITE_P(Pumps, RunButton,
                         testing::Values(BehindTheStop, BehindTheEmptying, BehindTheView));

TEST_F(ValuesBlock, EndsItsStopOnceMoreBehindAStopInIt) {
  At(BehindTheStop, [&] { scene.Main.CWButton4.Value = false; });

  Complete();

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "stop", "pump",                   //
                                         "pump", "stop", "pump", "clear", "pump",  // the button
                                         "clear", "pump", "pump"));
}

// The tabs.

TEST_F(ValuesBlock, IsNotShownWhereTheUserLeavesTheTabInItsFirstPump) {
  At(BlockComplete, [&] { scene.Main.TabStrip1.SelectedTab = forms::tab::Info; });

  Complete();

  EXPECT_EQ(Value(), "0.00");
  EXPECT_FALSE(scene.Main.Timer2.Enabled);
}

class ExitTab : public ValuesBlock {};

TEST_P(ExitTab, ClosesTheWindowOutOfThePump) {
  scene.Main.CWButton4.Enabled = true;
  At(GetParam(), [&] { scene.Main.TabStrip1.SelectedTab = forms::tab::Exit; });

  Complete();

  EXPECT_FALSE(scene.Main.Window.Loaded);
  EXPECT_FALSE(scene.Capture.Running);
}

INSTANTIATE_TEST_SUITE_P(Pumps, ExitTab, testing::Range(1, 5));

// A timer.

class ButtonTimer : public ValuesBlock {};

TEST_P(ButtonTimer, FiresInsideThePump) {
  scene.Main.CWButton4.Enabled = false;
  scene.Main.Timer3.Enabled = true;
  const auto pass = [&] { scene.Clock.Advance(1s); };
  if (GetParam() == BlockComplete) {
    pass();
  } else {
    At(GetParam() - 1, pass);
  }
  support::Watch(scene.Journal, scene.Main.CWButton4.Enabled, "CWButton4.Enabled");

  Complete();

  support::Journal expected = {"pump", "stop", "pump", "clear", "pump", "pump"};
  // Where the pumps stand in the journal.
  const std::array<int, 4> places = {0, 2, 4, 5};
  expected.insert(expected.begin() + places[static_cast<std::size_t>(GetParam() - 1)] + 1,
                  "CWButton4.Enabled true");
  EXPECT_EQ(scene.Journal, expected);
  EXPECT_EQ(Value(), "3.00");
}

INSTANTIATE_TEST_SUITE_P(Pumps, ButtonTimer, testing::Range(1, 5));

TEST(PumpsOfAStart, LetTheWatchdogFireBetweenStopAndStart) {
  Scene scene;
  scene.Start();
  // The button has the first pump, the stop in the start path the second and the third.
  scene.Events.AtPump(2, [&] { scene.Clock.Advance(2s); });

  scene.Main.CWButton4.Value = true;

  EXPECT_EQ(scene.Dialogs.TimedShown.size(), 1U);
  EXPECT_FALSE(scene.State.LookingForValues);
  EXPECT_FALSE(scene.Main.Timer1.Enabled);
  // What the watchdog has ended does not start behind it.
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_THAT(scene.Journal, testing::Not(testing::Contains("start")));
}

// The check box of the real-time value.

TEST_F(ValuesBlock, KeepsCaptureOnWhereTheCheckBoxIsTickedInItsFirstPump) {
  At(BlockComplete, [&] { scene.Main.Check5.Value = 1; });

  Complete();

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "pump"));
  EXPECT_TRUE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.Main.Timer2.Enabled);
  EXPECT_EQ(Value(), "0.00");
}

TEST_F(ValuesBlock, StopsWhereTheCheckBoxIsClearedInItsFirstPump) {
  scene.Main.Check5.Value = 1;
  scene.Journal.clear();
  At(BlockComplete, [&] { scene.Main.Check5.Value = 0; });

  Complete();

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "pump", "stop", "pump", "clear", "pump", "pump"));
  EXPECT_TRUE(scene.Main.Timer2.Enabled);
  EXPECT_EQ(Value(), "3.00");
}

class CheckBoxTicked : public ValuesBlock {};

TEST_P(CheckBoxTicked, ResetsTheLabelsBehindTheViewAndRestartsOnce) {
  At(GetParam(), [&] { scene.Main.Check5.Value = 1; });

  Complete();
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(scene.Main.Label5[i].Caption, "0.00") << i;
  EXPECT_TRUE(scene.Main.Timer2.Enabled);
  EXPECT_FALSE(scene.State.CaptureRunning);

  scene.Elapse(100ms);
  scene.Receive(400, Steady);
  EXPECT_TRUE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.Main.Timer2.Enabled);
  EXPECT_EQ(Value(), "3.00");
}

INSTANTIATE_TEST_SUITE_P(Pumps, CheckBoxTicked,
                         testing::Values(BehindTheStop, BehindTheEmptying, BehindTheView));

TEST_F(ValuesBlock, ArmsTheRestartBeforeItResetsTheLabels) {
  At(BehindTheEmptying, [&] { scene.Main.Check5.Value = 1; });
  support::Watch(scene.Journal, scene.Main.Label5[0].Caption, "Label5(0)");
  support::Watch(scene.Journal, scene.Main.Timer2.Enabled, "Timer2.Enabled");

  Complete();

  EXPECT_THAT(scene.Journal,
              ElementsAre("pump", "stop", "pump", "clear", "pump", "pump",
                          "Label5(0) 0.00",  // the check box
                          "Label5(0) 3.00", "pump", "Timer2.Enabled true", "Label5(0) 0.00"));
}

TEST_F(ValuesBlock, KeepsTheLabelsWhereTheCheckBoxIsTickedAndClearedInAPump) {
  At(BehindTheEmptying, [&] {
    scene.Main.Check5.Value = 1;
    scene.Main.Check5.Value = 0;
  });

  Complete();

  EXPECT_EQ(Value(), "3.00");
}

}  // namespace
