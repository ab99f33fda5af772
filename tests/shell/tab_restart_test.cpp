#include "shell/tab_scene.h"

namespace {

using support::FrameBytes;
using support::SineFrame;
using namespace std::chrono_literals;

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
  void ExpectNoRun() {
    EXPECT_FALSE(scene.Capture.Running);
    EXPECT_FALSE(scene.State.CaptureRunning);
    EXPECT_FALSE(scene.State.LookingForValues || scene.State.LookingForPhases ||
                 scene.State.LookingForScope);
    for (const auto& indicator : main.Shape12) EXPECT_FALSE(indicator.Visible);
    scene.Elapse(60s);
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
  scene.Events.AtPump(1, [&] { scene.Select(8); });

  scene.Elapse(100ms);

  EXPECT_FALSE(main.Window.Loaded);
  EXPECT_FALSE(scene.Capture.Running);
}

}  // namespace
