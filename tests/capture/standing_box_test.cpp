#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using support::Scene;
using support::SineFrame;
using testing::IsEmpty;
using testing::SizeIs;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

/// A run of the Values view with the real-time value, which keeps capture running.
class StandingBox : public testing::Test {
 protected:
  StandingBox() {
    scene.Start();
    scene.Main.Check5.Value = 1;
  }

  /// The first reading cannot be shown once; a box tells so, with capture running.
  void FailOnce() {
    scene.Main.Label5[0].Caption.Observe([this] {
      if (failed_) return;
      failed_ = true;
      throw platform::Failure(platform::failure::OutOfMemory);
    });
  }
  void Frames(int count) {
    scene.Receive(count, [](int i) { return SineFrame(i, 100, 10); });
  }
  void CountChanges() {
    scene.Main.Label5[0].Caption.Observe([this] { ++changes; });
  }

  Scene scene;
  int changes = 0;

 private:
  bool failed_ = false;
};

TEST_F(StandingBox, NoFrameIsHandedOverBehindIt) {
  scene.RunValues();
  Frames(1);
  CountChanges();
  FailOnce();
  int behind = -1;
  scene.Dialogs.WhileOpen = [&] {
    const int before = changes;
    Frames(10);
    behind = changes - before;
  };

  Frames(1);

  EXPECT_THAT(scene.Dialogs.Shown, SizeIs(1));
  EXPECT_EQ(behind, 0);
  const int before = changes;
  Frames(10);
  EXPECT_EQ(changes - before, 10);
}

TEST_F(StandingBox, NoTimerFiresBehindIt) {
  scene.RunValues();
  Frames(1);
  FailOnce();
  ASSERT_TRUE(scene.Main.Timer3.Enabled);
  bool lockedBehind = false;
  scene.Dialogs.WhileOpen = [&] {
    scene.Elapse(5s);
    lockedBehind = !scene.Main.CWButton4.Enabled;
  };

  Frames(1);

  EXPECT_TRUE(lockedBehind);
  scene.Elapse(999ms);
  EXPECT_FALSE(scene.Main.CWButton4.Enabled);
  scene.Elapse(1ms);
  EXPECT_TRUE(scene.Main.CWButton4.Enabled);
}

TEST_F(StandingBox, OverAStartDoesNotBringTheNoDataDialog) {
  scene.RunValues();
  scene.Elapse(1900ms);
  scene.Dialogs.WhileOpen = [&] { scene.Elapse(60s); };

  scene.Dialogs.Show({"Attention", "text"});

  scene.Elapse(99ms);
  EXPECT_THAT(scene.Dialogs.TimedShown, IsEmpty());
  scene.Elapse(1ms);
  EXPECT_THAT(scene.Dialogs.TimedShown, SizeIs(1));
}

TEST_F(StandingBox, TheNoDataDialogHoldsTheOtherTimers) {
  scene.RunValues();
  bool firedBehind = false;
  scene.Main.Timer3.Elapsed = [&] { firedBehind = true; };
  scene.Elapse(1500ms);
  scene.Main.Timer3.Enabled = true;
  scene.Dialogs.WhileOpen = [&] {
    scene.Elapse(30s);
    EXPECT_FALSE(firedBehind);
  };

  scene.Elapse(500ms);

  EXPECT_THAT(scene.Dialogs.TimedShown, SizeIs(1));
  scene.Elapse(1000ms);
  EXPECT_TRUE(firedBehind);
}

TEST_F(StandingBox, TheFolderDialogIsOneToo) {
  scene.RunValues();
  scene.Folders.WhileOpen = [&] { scene.Elapse(60s); };

  scene.Main.Command3.Click();

  EXPECT_THAT(scene.Folders.Titles, SizeIs(1));
  EXPECT_THAT(scene.Dialogs.TimedShown, IsEmpty());
  EXPECT_TRUE(scene.State.CaptureRunning);
}

TEST_F(StandingBox, AnEndOfTheSessionEndsTheProgramFromBehindIt) {
  scene.RunValues();
  Frames(1);
  FailOnce();
  scene.Dialogs.WhileOpen = [&] { scene.App.EndSession(); };

  EXPECT_THROW(Frames(1), support::SceneEnded);

  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_EQ(scene.Journal.back(), "end");
}

}  // namespace
