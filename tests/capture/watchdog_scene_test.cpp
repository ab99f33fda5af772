#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using support::FrameBytes;
using support::Scene;
using support::SineFrame;
using testing::Contains;
using testing::Not;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

/// A run of the Values view, watched by the no-data timer.
class WatchedRun : public testing::Test {
 protected:
  WatchedRun() { scene.Start(); }

  static FrameBytes Signal(int i) { return SineFrame(i, 100, 10); }
  static FrameBytes Stranger(int i) { return SineFrame(i, 100, 10, "MU77"); }
  static FrameBytes Second(int i) { return SineFrame(i, 100, 10, "MU02"); }
  std::size_t DialogCount() const { return scene.Dialogs.TimedShown.size(); }

  Scene scene;
};

TEST_F(WatchedRun, EndsWithTheDialogWhereTheCableIsPulled) {
  scene.Main.CWButton4.Value = true;

  scene.Elapse(1999ms);
  EXPECT_EQ(DialogCount(), 0U);
  scene.Elapse(1ms);
  EXPECT_EQ(DialogCount(), 1U);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_FALSE(scene.Main.Shape12[0].Visible);
}

TEST_F(WatchedRun, GivesTheButtonsBackOneSecondAfterTheDialog) {
  scene.Main.CWButton4.Value = true;
  scene.Elapse(2000ms);

  EXPECT_FALSE(scene.Main.CWButton4.Value);
  EXPECT_FALSE(scene.Main.CWButton4.Enabled);
  EXPECT_FALSE(scene.Main.CWButton1.Enabled);
  scene.Elapse(999ms);
  EXPECT_FALSE(scene.Main.CWButton4.Enabled);
  scene.Elapse(1ms);
  EXPECT_TRUE(scene.Main.CWButton4.Enabled);
  EXPECT_TRUE(scene.Main.CWButton1.Enabled);
  EXPECT_FALSE(scene.Main.CWButton4.Value);
}

TEST_F(WatchedRun, CanBeStartedAgainAfterTheDialog) {
  scene.Main.CWButton4.Value = true;
  scene.Elapse(3000ms);

  scene.RunValues();
  scene.Receive(400, Signal);

  EXPECT_EQ(scene.Main.Label5[0].Caption, "100.0000");
  EXPECT_EQ(DialogCount(), 1U);
}

TEST_F(WatchedRun, TheFirstMatchingFrameDisarmsTheWatchdog) {
  scene.RunValues();
  scene.Receive(1, Signal);

  scene.Elapse(60s);

  EXPECT_FALSE(scene.Main.Timer1.Enabled);
  EXPECT_EQ(DialogCount(), 0U);
}

TEST_F(WatchedRun, AStreamThatStopsInMidBlockIsNoticedByNobody) {
  scene.RunValues();
  scene.Receive(399, Signal);

  scene.Elapse(60s);

  EXPECT_EQ(DialogCount(), 0U);
  EXPECT_TRUE(scene.State.CaptureRunning);
  EXPECT_TRUE(scene.Main.CWButton4.Value);
}

TEST_F(WatchedRun, FramesThatMatchNoFilterDoNotDisarmTheWatchdog) {
  scene.RunValues();
  for (int i = 0; i < 19; ++i) {
    scene.Receive(10, Stranger);
    scene.Elapse(100ms);
  }
  EXPECT_EQ(DialogCount(), 0U);

  scene.Elapse(100ms);

  EXPECT_EQ(DialogCount(), 1U);
}

TEST_F(WatchedRun, AnEmptyFilterMatchesNoFrame) {
  scene.Settings.FilterContent[0] = "";
  scene.RunValues();
  scene.Receive(10, Signal);

  scene.Elapse(2000ms);

  EXPECT_EQ(DialogCount(), 1U);
}

TEST_F(WatchedRun, EachBurstIsGuardedAnew) {
  scene.RunValues();
  scene.ReceiveBlock(Signal);
  ASSERT_TRUE(scene.Capture.Running);

  scene.Elapse(1999ms);
  EXPECT_EQ(DialogCount(), 0U);
  scene.Elapse(1ms);
  EXPECT_EQ(DialogCount(), 1U);
  EXPECT_FALSE(scene.Main.CWButton4.Value);
}

TEST_F(WatchedRun, TheSecondStreamAloneDisarmsTheWatchdogAndShowsNothing) {
  scene.Main.Text1[14].Text = "MU02";
  scene.RunValues();
  scene.Receive(1000, Second);

  scene.Elapse(60s);

  EXPECT_EQ(DialogCount(), 0U);
  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.0000");
  EXPECT_TRUE(scene.State.CaptureRunning);
}

TEST_F(WatchedRun, TimedOutInThePumpAfterTheLastFrameIsNeitherShownNorRestarted) {
  scene.RunValues();
  scene.Receive(399, Signal);
  scene.Main.Timer1.Enabled = true;
  scene.Clock.Advance(2000ms);

  scene.Receive(Signal(399));

  EXPECT_EQ(DialogCount(), 1U);
  EXPECT_EQ(scene.State.BlockCount, 1);
  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.0000");
  EXPECT_FALSE(scene.Main.Timer2.Enabled);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.Main.CWButton4.Value);
}

TEST_F(WatchedRun, TheFinderTimedOutWhileItsFrameStopsCaptureDoesNotGoOn) {
  scene.RunValues();
  scene.State.LookingForValues = false;
  scene.State.LookingForID = true;
  scene.Clock.Advance(2000ms);

  scene.Receive(Signal(0));
  scene.Journal.clear();
  scene.Elapse(60s);

  EXPECT_EQ(DialogCount(), 1U);
  EXPECT_FALSE(scene.State.LookingForID);
  EXPECT_THAT(scene.Journal, Not(Contains("start")));
}

TEST_F(WatchedRun, AStopInThePumpOfTheRestartEndsTheRunBehindItsStart) {
  scene.RunValues();
  scene.ReceiveBlock(Signal);
  scene.Receive(400, Signal);
  // The restart's own pump; the button was given back by then.
  scene.Events.AtPump(1, [&] { scene.Main.CWButton4.Value = false; });

  scene.Journal.clear();
  scene.Elapse(100ms);

  EXPECT_THAT(scene.Journal, testing::Contains("start"));
  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_FALSE(scene.State.LookingForValues);
  scene.Elapse(60s);
  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_EQ(DialogCount(), 0U);
}

}  // namespace
