#include <tuple>

#include "shell/tab_scene.h"

namespace {

using support::FrameBytes;
using support::SineFrame;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

/// A live view that is left in the moment in which its next burst is about to start.
class TabRestart : public shell_tests::TabScene {
 protected:
  static FrameBytes Signal(int i) { return SineFrame(i, 100, 10); }

  void RunABlock(std::int16_t tab, platform::CWButton& button) {
    scene.Select(tab);
    Run(button);
  }
  void Run(platform::CWButton& button) {
    button.Value = true;
    scene.Receive(Signal(0));
    ReceiveBlock();
  }
  void ReceiveBlock() {
    const std::int32_t before = scene.State.BlockCount;
    scene.Receive(400, Signal);
    ASSERT_EQ(scene.State.BlockCount, before + 1);
  }
  void LeaveInTheRestartFor(std::int16_t tab) {
    bool left = false;
    scene.Events.AtPump(1, [&] {
      left = true;
      scene.Select(tab);
    });
    scene.Elapse(100ms);
    ASSERT_TRUE(left);
  }
  void ExpectNothingRuns() {
    EXPECT_FALSE(scene.Capture.Running);
    EXPECT_FALSE(scene.State.CaptureRunning);
    EXPECT_FALSE(scene.State.LookingForValues || scene.State.LookingForPhases ||
                 scene.State.LookingForScope || scene.State.LookingForRecording ||
                 scene.State.LookingForID || scene.State.ReportRequested);
    for (const auto& indicator : main.Shape12) EXPECT_FALSE(indicator.Visible);
  }
  void ExpectNoRun() {
    ExpectNothingRuns();
    scene.Elapse(60s);
    ExpectNothingRuns();
    EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
  }
};

TEST_F(TabRestart, EndsTheValues) {
  RunABlock(2, main.CWButton4);
  LeaveInTheRestartFor(7);
  ExpectNoRun();
}

TEST_F(TabRestart, EndsThePhasors) {
  RunABlock(3, main.CWButton2);
  LeaveInTheRestartFor(7);
  ExpectNoRun();
}

TEST_F(TabRestart, EndsTheScope) {
  RunABlock(4, main.CWButton1);
  LeaveInTheRestartFor(7);
  ExpectNoRun();
}

TEST_F(TabRestart, LeavesTheNextViewToRunFromBlockToBlock) {
  RunABlock(2, main.CWButton4);
  LeaveInTheRestartFor(3);
  scene.Elapse(1000ms);

  Run(main.CWButton2);
  for (int block = 0; block < 3; ++block) {
    scene.Elapse(100ms);
    ReceiveBlock();
  }

  EXPECT_TRUE(main.Timer2.Enabled);
}

TEST_F(TabRestart, StartsNothingBehindTheEndOfTheProgram) {
  RunABlock(2, main.CWButton4);
  scene.Elapse(1000ms);
  scene.Receive(400, Signal);
  scene.Events.AtPump(1, [&] { scene.Select(forms::tab::Exit); });

  scene.Elapse(100ms);

  EXPECT_FALSE(main.Window.Loaded);
  EXPECT_FALSE(scene.Capture.Running);
}

/// A live view whose pause between two blocks runs out while it is being left: in each pump of the
/// way out.
class PauseThatEndsOnTheWayOut : public TabRestart,
                                 public testing::WithParamInterface<std::tuple<int, int>> {
 protected:
  void RunTheView() {
    platform::CWButton* const buttons[] = {&main.CWButton4, &main.CWButton2, &main.CWButton1};
    const int view = std::get<0>(GetParam());
    RunABlock(static_cast<std::int16_t>(view), *buttons[view - 2]);
  }
  void LetThePauseEndInThePump() {
    scene.Events.AtPump(std::get<1>(GetParam()), [this] {
      ended_ = true;
      scene.Elapse(100ms);
    });
  }
  bool ended_ = false;
};

TEST_P(PauseThatEndsOnTheWayOut, StartsNothingBehindAChangeOfTab) {
  RunTheView();
  LetThePauseEndInThePump();

  scene.Select(forms::tab::Setup);

  ASSERT_TRUE(ended_);
  ExpectNoRun();
}

TEST_P(PauseThatEndsOnTheWayOut, StartsNothingBehindTheExit) {
  RunTheView();
  scene.Elapse(1000ms);
  scene.Receive(400, Signal);
  LetThePauseEndInThePump();
  scene.Journal.clear();

  scene.Select(forms::tab::Exit);

  ASSERT_TRUE(ended_);
  ExpectNothingRuns();
  EXPECT_THAT(scene.Journal, testing::Not(testing::Contains("wait 500")));
  EXPECT_THAT(scene.Journal, testing::Not(testing::Contains("start")));
}

TEST_P(PauseThatEndsOnTheWayOut, StartsNothingBehindTheEndOfTheSession) {
  RunTheView();
  LetThePauseEndInThePump();

  scene.Journal.clear();

  EXPECT_THROW(scene.App.EndSession(), support::SceneEnded);

  ExpectNothingRuns();
  // Nor does the pause of the user's choice hold up the end.
  EXPECT_THAT(scene.Journal, testing::Not(testing::Contains("wait 500")));
}

INSTANTIATE_TEST_SUITE_P(Views, PauseThatEndsOnTheWayOut,
                         testing::Combine(testing::Values(2, 3, 4), testing::Values(1, 2, 3, 4)));

TEST_F(TabRestart, StartsNothingForAPressThatAChangeOfTabOvertakes) {
  scene.Select(forms::tab::Phasor);
  scene.Events.AtPump(1, [&] { scene.Select(forms::tab::Setup); });

  main.CWButton2.Value = true;

  ExpectNoRun();
}

TEST_F(TabRestart, StartsNothingForAPressInsideAChangeOfTab) {
  scene.Select(forms::tab::Waveforms);
  scene.Events.AtPump(4, [&] { main.CWButton1.Value = true; });

  scene.Select(forms::tab::Setup);

  ExpectNoRun();
  scene.Select(forms::tab::Waveforms);
  scene.Elapse(1000ms);
  EXPECT_FALSE(main.CWButton1.Value);
  EXPECT_TRUE(main.CWButton1.Enabled);
}

TEST_F(TabRestart, StartsNothingForAPressInTheStopPathOfTheViewThatIsLeft) {
  RunABlock(4, main.CWButton1);
  scene.Elapse(1000ms);
  bool pressed = false;
  // Behind the two pumps of the change and the two of its stop comes that of the button.
  scene.Events.AtPump(5, [&] {
    pressed = true;
    main.CWButton1.Value = true;
  });

  scene.Select(forms::tab::Setup);

  ASSERT_TRUE(pressed);
  ExpectNoRun();
}

TEST_F(TabRestart, LetsARunStartBehindAChangeOfTab) {
  RunABlock(3, main.CWButton2);
  scene.Select(forms::tab::Values);
  scene.Elapse(1000ms);

  Run(main.CWButton4);

  EXPECT_TRUE(scene.State.LookingForValues);
}

}  // namespace
