#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using std::chrono::milliseconds;
using support::Scene;
using support::SvFrame;

constexpr std::int16_t ExitTab = 8;

TEST(ShutDown, EndsFromAViewThatDoesNotRun) {
  Scene scene;
  scene.Start();

  scene.Select(ExitTab);

  EXPECT_FALSE(scene.Main.Window.Loaded);
  EXPECT_FALSE(scene.Main.Window.Visible);
}

TEST(ShutDown, StopsCaptureAndTheTimers) {
  Scene scene;
  scene.Start();
  scene.RunValues();
  scene.Receive(SvFrame().Bytes());
  scene.Elapse(milliseconds(1000));
  ASSERT_TRUE(scene.Capture.Running);
  scene.Main.Timer2.Enabled = true;

  scene.Select(ExitTab);

  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.Main.Timer1.Enabled);
  EXPECT_FALSE(scene.Main.Timer2.Enabled);
  EXPECT_FALSE(scene.Main.Timer3.Enabled);
  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, ByTheTabReturnsToTheViewWhileItsButtonIsLocked) {
  Scene scene;
  scene.Start();
  scene.RunValues();
  scene.Receive(SvFrame().Bytes());
  ASSERT_FALSE(scene.Main.CWButton4.Enabled);

  scene.Select(ExitTab);

  EXPECT_TRUE(scene.Main.Window.Loaded);
  EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, 2);

  scene.Elapse(milliseconds(1000));
  scene.Select(ExitTab);

  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, LooksAtTheButtonOfTheViewInUse) {
  struct View {
    std::int16_t Tab;
    platform::CWButton& Button;
  };
  Scene scene;
  scene.Start();
  for (const View& view : {View{3, scene.Main.CWButton2}, View{4, scene.Main.CWButton1},
                           View{5, scene.Main.CWButton3}}) {
    scene.Select(view.Tab);
    view.Button.Enabled = false;

    scene.Select(ExitTab);

    EXPECT_TRUE(scene.Main.Window.Loaded) << view.Tab;
    EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, view.Tab);
    view.Button.Enabled = true;
  }
}

TEST(ShutDown, DoesNotWaitForAButtonOfAnotherView) {
  Scene scene;
  scene.Start();
  scene.Select(7);
  scene.Main.CWButton4.Enabled = false;

  scene.Select(ExitTab);

  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, ByTheCloseBoxWaitsForTheButtonAndThenEnds) {
  Scene scene;
  scene.Start();
  scene.RunValues();
  scene.Receive(SvFrame().Bytes());

  scene.Main.Window.QueryUnload();

  EXPECT_TRUE(scene.Main.Window.Loaded);
  EXPECT_FALSE(scene.Capture.Running);

  scene.Elapse(milliseconds(1100));

  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, ByTheCloseBoxEndsAtOnceWhereNothingIsInProgress) {
  Scene scene;
  scene.Start();

  scene.Main.Window.QueryUnload();

  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, UnloadsTheWindowOnce) {
  Scene scene;
  scene.Start();
  int unloaded = 0;
  scene.Main.Window.Loaded.Observe([&] {
    if (!scene.Main.Window.Loaded) ++unloaded;
  });

  scene.Select(ExitTab);
  scene.Main.Window.QueryUnload();

  EXPECT_EQ(unloaded, 1);
}

TEST(ShutDown, ClosesTheOtherFormsToo) {
  Scene scene;
  scene.Start();
  scene.App.DebugWindow.Window.Visible = true;

  scene.Select(ExitTab);

  EXPECT_FALSE(scene.App.DebugWindow.Window.Visible);
  EXPECT_FALSE(scene.App.Revisionhistory.Window.Loaded);
}

TEST(ShutDown, WritesNoSettings) {
  Scene scene;
  scene.Start();
  scene.Store.Written.clear();

  scene.Select(ExitTab);

  EXPECT_TRUE(scene.Store.Written.empty());
}

TEST(ShutDown, GoesOnOverFailures) {
  Scene scene;
  scene.Start();
  scene.Capture.StopFailure = platform::Failure(57);
  scene.Events.AtPump(1, [] { throw platform::Failure(5); });

  scene.Select(ExitTab);

  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, DoesNotHangWhereCaptureCannotBeStopped) {
  Scene scene;
  scene.Start();
  scene.RunValues();
  scene.Receive(SvFrame().Bytes());
  scene.Elapse(milliseconds(1000));
  scene.Capture.StopFailure = platform::Failure(57);

  scene.Select(ExitTab);

  EXPECT_FALSE(scene.Main.Window.Loaded);
}

}  // namespace
