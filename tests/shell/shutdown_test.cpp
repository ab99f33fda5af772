#include "platform/failure.h"
#include "shell/tab_scene.h"

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
  for (auto* timer : {&scene.Main.Timer1, &scene.Main.Timer2, &scene.Main.Timer3}) {
    timer->Enabled = true;
  }

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

TEST(ShutDown, ByTheHiddenEndButtonComesAtOnce) {
  Scene scene;
  scene.Start();
  scene.RunValues();

  EXPECT_THROW(scene.Main.Command8.Click(), support::SceneEnded);

  EXPECT_TRUE(scene.Main.Window.Loaded);
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

TEST(ShutDown, ClosesTheOtherFormsThatAreOpen) {
  Scene scene;
  scene.Start();
  platform::Window& history = scene.App.Revisionhistory.Window;
  platform::Window& debug = scene.App.DebugWindow.Window;
  debug.Visible = true;
  history.ShowModal = [&] { scene.Select(ExitTab); };

  scene.Main.Label4.Click();

  EXPECT_FALSE(history.Loaded);
  EXPECT_FALSE(debug.Loaded);
  EXPECT_FALSE(debug.Visible);
  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, DoesNotAskFormsThatWereNeverOpened) {
  Scene scene;
  scene.Start();
  int asked = 0;
  scene.App.Revisionhistory.Window.QueryUnload = [&] { ++asked; };
  scene.App.DebugWindow.Window.QueryUnload = [&] { ++asked; };

  scene.Select(ExitTab);

  EXPECT_EQ(asked, 0);
  EXPECT_FALSE(scene.Main.Window.Loaded);
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

/// Two windows beside the main one, all of them open.
class ShutdownForms : public shell_tests::TabBench {
 protected:
  ShutdownForms() {
    tabs.OtherForms = {&first, &second};
    for (platform::Window* window : {&first, &second, &main.Window}) window->Visible = true;
  }

  platform::Window first;
  platform::Window second;
};

TEST_F(ShutdownForms, StopsTheTimersBeforeAnyFormIsUnloaded) {
  const auto timers = {&main.Timer1, &main.Timer2, &main.Timer3};
  for (platform::Timer* timer : timers) timer->Enabled = true;
  int running = 3;
  first.QueryUnload = [&] {
    running = 0;
    for (platform::Timer* timer : timers) running += timer->Enabled ? 1 : 0;
  };

  tabs.ShutdownForms();

  EXPECT_EQ(running, 0);
}

TEST_F(ShutdownForms, UnloadsTheMainWindowLast) {
  bool mainLoaded = false;
  second.QueryUnload = [&] { mainLoaded = main.Window.Loaded; };

  tabs.ShutdownForms();

  EXPECT_TRUE(mainLoaded);
  EXPECT_FALSE(first.Loaded);
  EXPECT_FALSE(second.Loaded);
  EXPECT_FALSE(main.Window.Loaded);
}

TEST_F(ShutdownForms, CalledWhileItRunsReturnsAtOnce) {
  int asked = 0;
  bool nextOpen = false;
  first.QueryUnload = [&] {
    if (++asked == 1) tabs.ShutdownForms();
    nextOpen = second.Loaded;
  };

  tabs.ShutdownForms();

  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(nextOpen);
  EXPECT_FALSE(second.Loaded);
}

TEST_F(ShutdownForms, CanRunAgainAfterItsEnd) {
  tabs.ShutdownForms();
  second.Visible = true;

  tabs.ShutdownForms();

  EXPECT_FALSE(second.Loaded);
}

TEST_F(ShutdownForms, GoesOnToTheNextFormWhereOneFails) {
  first.QueryUnload = [] { throw platform::Failure(platform::failure::InvalidProcedureCall); };

  tabs.ShutdownForms();

  EXPECT_TRUE(first.Loaded);
  EXPECT_FALSE(second.Loaded);
  EXPECT_FALSE(main.Window.Loaded);
}

}  // namespace
