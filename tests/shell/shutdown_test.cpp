#include "base/failure.h"
#include "shell/tab_scene.h"
#include "support/watch.h"

namespace {

using std::chrono::milliseconds;
using support::Scene;
using support::SvFrame;
using support::Watch;

TEST(ShutDown, EndsFromAViewThatDoesNotRun) {
  Scene scene;
  scene.Start();

  scene.Select(forms::tab::Exit);

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

  scene.Select(forms::tab::Exit);

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

  scene.Select(forms::tab::Exit);

  EXPECT_TRUE(scene.Main.Window.Loaded);
  EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, forms::tab::Values);

  scene.Elapse(milliseconds(1000));
  scene.Select(forms::tab::Exit);

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

    scene.Select(forms::tab::Exit);

    EXPECT_TRUE(scene.Main.Window.Loaded) << view.Tab;
    EXPECT_EQ(scene.Main.TabStrip1.SelectedTab, view.Tab);
    view.Button.Enabled = true;
  }
}

TEST(ShutDown, DoesNotWaitForAButtonOfAnotherView) {
  Scene scene;
  scene.Start();
  scene.Select(forms::tab::Setup);
  scene.Main.CWButton4.Enabled = false;

  scene.Select(forms::tab::Exit);

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

  scene.Select(forms::tab::Exit);
  scene.Main.Window.QueryUnload();

  EXPECT_EQ(unloaded, 1);
}

TEST(ShutDown, ClosesTheOtherFormsThatAreOpen) {
  Scene scene;
  scene.Start();
  platform::Window& history = scene.App.Windows.Revisionhistory.Window;
  platform::Window& debug = scene.App.Windows.DebugWindow.Window;
  debug.Visible = true;
  history.ShowModal = [&] { scene.Select(forms::tab::Exit); };

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
  scene.App.Windows.Revisionhistory.Window.QueryUnload = [&] { ++asked; };
  scene.App.Windows.DebugWindow.Window.QueryUnload = [&] { ++asked; };

  scene.Select(forms::tab::Exit);

  EXPECT_EQ(asked, 0);
  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, WritesNoSettings) {
  Scene scene;
  scene.Start();
  scene.Store.Written.clear();

  scene.Select(forms::tab::Exit);

  EXPECT_TRUE(scene.Store.Written.empty());
}

TEST(ShutDown, GoesOnOverFailures) {
  Scene scene;
  scene.Start();
  scene.Capture.StopFailure = platform::Failure(57);
  scene.Events.AtPump(1, [] { throw platform::Failure(5); });

  scene.Select(forms::tab::Exit);

  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, DoesNotHangWhereCaptureCannotBeStopped) {
  Scene scene;
  scene.Start();
  scene.RunValues();
  scene.Receive(SvFrame().Bytes());
  scene.Elapse(milliseconds(1000));
  scene.Capture.StopFailure = platform::Failure(57);

  scene.Select(forms::tab::Exit);

  EXPECT_FALSE(scene.Main.Window.Loaded);
}

TEST(ShutDown, StopsCaptureAgainUntilItStops) {
  Scene scene;
  scene.Start();
  scene.RunValues();
  scene.Main.CWButton4.Enabled = true;
  scene.Capture.StopFailure = platform::Failure(57);
  // Each stop begins with the indicators; the third one succeeds.
  int stops = 0;
  scene.Main.Shape12[0].Visible.Observe([&] {
    if (++stops == 3) scene.Capture.StopFailure.reset();
  });
  scene.Journal.clear();

  scene.Select(forms::tab::Exit);

  EXPECT_THAT(scene.Journal, testing::ElementsAre("stop", "wait 10", "stop", "wait 10",  //
                                                  "stop", "pump", "clear", "pump",       //
                                                  "pump", "pump"));
  EXPECT_FALSE(scene.State.CaptureRunning);
}

TEST(ShutDown, GoesItsStepsInOrder) {
  Scene scene;
  scene.Start();
  scene.RunValues();
  scene.Main.CWButton4.Enabled = true;
  scene.App.Windows.Revisionhistory.Window.Visible = true;
  for (auto* timer : {&scene.Main.Timer1, &scene.Main.Timer2, &scene.Main.Timer3}) {
    timer->Enabled = true;
  }
  Watch(scene.Journal, scene.Main.Timer1.Enabled, "Timer1");
  Watch(scene.Journal, scene.Main.Timer2.Enabled, "Timer2");
  Watch(scene.Journal, scene.Main.Timer3.Enabled, "Timer3");
  Watch(scene.Journal, scene.App.Windows.Revisionhistory.Window.Loaded, "history");
  Watch(scene.Journal, scene.Main.Window.Loaded, "main window");
  scene.Journal.clear();

  scene.Select(forms::tab::Exit);

  EXPECT_THAT(scene.Journal,
              testing::ElementsAre("stop", "pump", "clear", "pump",                 // capture
                                   "pump",                                          //
                                   "Timer1 false", "Timer2 false", "Timer3 false",  //
                                   "history false", "main window false",            //
                                   "pump"));
}

TEST(ShutDown, UnloadsTheWindowAtLastWhereThatFailedBefore) {
  Scene scene;
  scene.Start();
  bool failed = false;
  scene.Main.Window.Visible.Observe([&] {
    if (failed) return;
    failed = true;
    throw platform::Failure(platform::failure::InvalidProcedureCall);
  });
  Watch(scene.Journal, scene.Main.Window.Loaded, "main window");

  scene.Select(forms::tab::Exit);

  EXPECT_TRUE(failed);
  EXPECT_EQ(scene.Journal.back(), "main window false") << "behind the last pump";
}

TEST(ShutDown, ServesACloseRequestThatComesBeforeItsFormsAreUnloaded) {
  Scene scene;
  scene.Start();
  int exits = 0;
  scene.Main.TabStrip1.SelectedTab.Observe([&] { ++exits; });
  scene.Events.AtPump(3, [&] { scene.Main.Window.QueryUnload(); });

  scene.Select(forms::tab::Exit);

  EXPECT_EQ(exits, 2);
  EXPECT_FALSE(scene.Main.Window.Loaded);
}

/// Two windows beside the main one, all of them open.
class ShutdownForms : public shell_tests::TabScene {
 protected:
  ShutdownForms() {
    for (platform::Window* window : {&first, &second, &main.Window}) window->Visible = true;
  }

  formroutines::TabController& tabs = scene.App.Tabs;
  platform::Window& first = scene.App.Windows.Revisionhistory.Window;
  platform::Window& second = scene.App.Windows.DebugWindow.Window;
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
