#include <gmock/gmock.h>

#include "support/scene.h"
#include "support/square_frame.h"
#include "support/watch.h"

namespace {

using support::FrameBytes;
using support::Scene;
using support::SquareFrame;
using support::Watch;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Not;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""us;

/// The run button of the Values view; the journal tells what it does.
class ValuesRun : public testing::Test {
 protected:
  ValuesRun() {
    scene.Start();
    Watch(scene.Journal, Button().Enabled, "Enabled");
    Watch(scene.Journal, Button().ToolTipText, "Tip");
    Watch(scene.Journal, scene.Main.Timer3.Enabled, "Timer3");
    Watch(scene.Journal, scene.Main.Label5[7].Caption, "Label5(7)");
    Watch(scene.Journal, scene.Main.Label12[15].Caption, "Label12(15)");
  }

  platform::CWButton& Button() { return scene.Main.CWButton4; }
  static FrameBytes Signal(int i) { return SquareFrame(i, 1000, 63.5); }
  /// Lets the button come back and stops the run.
  void Stop() {
    Button().Enabled = true;
    Button().Value = false;
  }
  /// Frames of a bus at 4000 frames a second, until the block is complete.
  int ReceiveUntilStopped() {
    int count = 0;
    while (scene.Capture.Running) {
      scene.Clock.Advance(250us);
      scene.Receive(Signal(count++));
    }
    return count;
  }
  /// Time from the start of a burst to the start of the next one.
  std::chrono::nanoseconds Cycle() {
    const auto begin = scene.Clock.Now();
    ReceiveUntilStopped();
    while (!scene.Capture.Running) scene.Elapse(1ms);
    return scene.Clock.Now() - begin;
  }

  Scene scene;
};

TEST_F(ValuesRun, StartsInItsOrder) {
  Button().Value = true;

  EXPECT_THAT(
      scene.Journal,
      ElementsAre("pump", "Label5(7) 0.0000", "Label12(15) ", "Enabled false",
                  "Tip 'Stop' quit actual measurements", "adapter Bus", "set BuffSize 262144",
                  "set BuffMinToCopy 0", "set HWFilter 32", "set mode 1",
                  "set BPFilter 'ether proto 0x88ba'", "stop", "pump", "clear", "pump", "start"));
  EXPECT_TRUE(scene.State.LookingForValues);
  EXPECT_TRUE(scene.State.PacketLengthPending);
}

TEST_F(ValuesRun, StopsInItsOrder) {
  scene.RunValues();
  Button().Enabled = true;
  scene.Journal.clear();
  bool lookingAtStop = true;
  scene.Events.AtPump(2, [&] { lookingAtStop = scene.State.LookingForValues; });

  Button().Value = false;

  EXPECT_THAT(scene.Journal,
              ElementsAre("pump", "Tip 'Run' starts aquiring samples to calculate RMS",
                          "Enabled false", "Timer3 true", "stop", "pump", "clear", "pump"));
  EXPECT_FALSE(lookingAtStop);
  EXPECT_FALSE(scene.State.CaptureRunning);
}

TEST_F(ValuesRun, StandsAtRunBeforeTheFirstRun) {
  EXPECT_EQ(Button().OffText, "RUN");
  EXPECT_EQ(Button().OnText, "STOP");
  EXPECT_EQ(Button().ToolTipText,
            "'RUN' starts recording samples acc. to time base; 'STOP' freeze actual view");
  EXPECT_FALSE(Button().Value);
  EXPECT_TRUE(Button().Enabled);
}

TEST_F(ValuesRun, DoesNothingWhileTheButtonIsDisabled) {
  Button().Enabled = false;
  scene.Journal.clear();

  Button().Value = true;
  EXPECT_THAT(scene.Journal, ElementsAre("pump"));
  Button().Value = false;
  EXPECT_THAT(scene.Journal, ElementsAre("pump", "pump"));
}

TEST_F(ValuesRun, HandlesPendingEventsBeforeItLooksAtTheButton) {
  scene.Events.AtPump(1, [&] { Button().Enabled = false; });

  Button().Value = true;

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "Enabled false"));
  EXPECT_FALSE(scene.State.LookingForValues);
}

TEST_F(ValuesRun, AStartEmptiesTheViewAndTheCounters) {
  scene.Main.Check4.Value = 1;
  scene.RunValues();
  scene.ReceiveBlock(Signal);
  Stop();
  scene.State.BlockCount2 = 5;
  scene.Elapse(1s);

  Button().Value = true;

  for (const platform::Label& value : scene.Main.Label5) EXPECT_EQ(value.Caption, "0.0000");
  for (std::size_t i = 8; i < 16; ++i) EXPECT_EQ(scene.Main.Label12[i].Caption, "") << i;
  EXPECT_EQ(scene.State.BlockCount, 0);
  EXPECT_EQ(scene.State.BlockCount2, 0);
}

TEST_F(ValuesRun, AStartMeasuresTheFramesAnew) {
  scene.RunValues();
  scene.Receive(400, Signal);
  Stop();
  scene.Elapse(1s);

  const auto longer = [](int i) { return SquareFrame(i, 2000, 63.5, 0, "MU01-long"); };
  Button().Value = true;
  scene.Receive(1 + 400, longer);

  EXPECT_EQ(scene.Main.Label5[0].Caption, "2,000.0000");
}

TEST_F(ValuesRun, TheButtonComesBackOneSecondAfterTheFirstFrame) {
  scene.RunValues();
  scene.Elapse(500ms);
  scene.Receive(Signal(0));

  scene.Elapse(999ms);
  EXPECT_FALSE(Button().Enabled);
  scene.Elapse(1ms);
  EXPECT_TRUE(Button().Enabled);
  EXPECT_TRUE(Button().Value);
}

TEST_F(ValuesRun, TheButtonStaysAwayUntilAFrameComes) {
  scene.RunValues();

  scene.Elapse(1999ms);

  EXPECT_FALSE(Button().Enabled);
}

TEST_F(ValuesRun, TheButtonsComeBackOneSecondAfterAStop) {
  scene.RunValues();
  Stop();
  scene.Main.CWButton1.Enabled = false;
  scene.Main.CWButton2.Enabled = false;

  scene.Elapse(999ms);
  EXPECT_FALSE(Button().Enabled);
  scene.Elapse(1ms);
  EXPECT_TRUE(Button().Enabled);
  EXPECT_TRUE(scene.Main.CWButton1.Enabled);
  EXPECT_TRUE(scene.Main.CWButton2.Enabled);
}

TEST_F(ValuesRun, AStopInMidBlockShowsNoneOfIt) {
  scene.RunValues();
  scene.Receive(399, Signal);

  Stop();
  scene.Receive(400, Signal);

  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.0000");
  EXPECT_FALSE(scene.Capture.Running);
}

TEST_F(ValuesRun, AStopBetweenTwoBlocksIsNotFollowedByARestart) {
  scene.RunValues();
  scene.Receive(400, Signal);
  Stop();
  scene.Journal.clear();

  scene.Elapse(60s);

  EXPECT_THAT(scene.Journal, Not(Contains("start")));
  EXPECT_THAT(scene.Dialogs.TimedShown, testing::IsEmpty());
}

TEST_F(ValuesRun, CapturesNothingBetweenTwoBlocks) {
  scene.RunValues();
  scene.Receive(400, Signal);

  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_FALSE(scene.Main.Shape12[0].Visible);
  EXPECT_EQ(scene.Main.Timer2.Interval, 100);
  EXPECT_TRUE(scene.Main.Timer2.Enabled);
}

TEST_F(ValuesRun, ARestartLosesNoFrame) {
  scene.RunValues();
  scene.ReceiveBlock(Signal);
  ASSERT_TRUE(scene.Capture.Running);

  scene.Receive(400, [](int i) { return SquareFrame(i + 77, 2000, 63.5); });

  EXPECT_EQ(scene.State.BlockCount, 2);
  EXPECT_EQ(scene.Block.SampleCount(0), 77);
  EXPECT_EQ(scene.Block.SampleCount(399), 476);
  EXPECT_EQ(scene.Main.Label5[0].Caption, "2,000.0000");
}

TEST_F(ValuesRun, ARestartLocatesTheOffsetsAnew) {
  Button().Value = true;
  scene.Receive(SquareFrame(0, 1000, 63.5, 0, "MU01-long"));
  scene.ReceiveBlock([](int i) { return SquareFrame(i, 1000, 63.5, 0, "MU01-long"); });

  scene.Receive(400, [](int i) { return SquareFrame(i, 2000, 63.5, 0, "MU01"); });

  EXPECT_EQ(scene.Main.Label5[0].Caption, "2,000.0000");
}

TEST_F(ValuesRun, ARestartSetsNoAdapterUp) {
  scene.RunValues();
  scene.Receive(400, Signal);
  scene.Journal.clear();

  scene.Elapse(100ms);

  EXPECT_THAT(scene.Journal, Contains("start"));
  EXPECT_THAT(scene.Journal, Each(Not(testing::StartsWith("set "))));
}

TEST_F(ValuesRun, OneUpdateTakesABlockAHundredMillisecondsAndTheDelay) {
  scene.RunValues();
  scene.ReceiveBlock(Signal);

  EXPECT_EQ(Cycle(), 100ms + 100ms + 500ms);
  EXPECT_EQ(Cycle(), 700ms);
}

TEST_F(ValuesRun, OneUpdateFollowsTheSetDelay) {
  scene.Main.Text1[13].Text = "0";
  scene.RunValues();
  scene.ReceiveBlock(Signal);
  EXPECT_EQ(Cycle(), 200ms);

  scene.Main.Text1[13].Text = "1000";
  EXPECT_EQ(Cycle(), 1200ms);
}

TEST_F(ValuesRun, OneUpdateFollowsTheSetSamplings) {
  scene.Main.Text1[2].Text = "4000";
  scene.RunValues();
  scene.ReceiveBlock(Signal);

  EXPECT_EQ(Cycle(), 1000ms + 100ms + 500ms);
}

}  // namespace
