#include "shell/tab_scene.h"

namespace {

using support::SvFrame;
using ::testing::ElementsAre;

using TabChanges = shell_tests::TabScene;

TEST_F(TabChanges, StopTheAcquisitionAsAWhole) {
  scene.Select(forms::tab::Values);
  scene.RunValues();
  scene.State.LookingForPhases = true;
  scene.State.LookingForScope = true;
  scene.State.LookingForRecording = true;
  scene.State.LookingForID = true;
  scene.State.ReportRequested = true;

  scene.Select(forms::tab::Setup);

  EXPECT_FALSE(scene.Capture.Running);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.State.LookingForValues);
  EXPECT_FALSE(scene.State.LookingForPhases);
  EXPECT_FALSE(scene.State.LookingForScope);
  EXPECT_FALSE(scene.State.LookingForRecording);
  EXPECT_FALSE(scene.State.LookingForID);
  EXPECT_FALSE(scene.State.ReportRequested);
}

TEST_F(TabChanges, PumpBeforeAndAfterTheTabIsTakenAndStopBehindTheStore) {
  scene.Journal.clear();
  const auto tell = [this] {
    scene.Journal.push_back("in use " + std::to_string(scene.Settings.MainActiveTab) + ", stored " +
                            scene.Store.Texts["MainActiveTab"]);
  };
  scene.Events.AtPump(1, tell);
  scene.Events.AtPump(2, tell);
  // The stop begins with the indicators.
  main.Shape12[0].Visible.Observe(tell);

  scene.Select(forms::tab::Setup);

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "in use 1, stored 1", "pump", "in use 7, stored 1",
                                         "in use 7, stored 7", "stop", "pump", "clear", "pump"));
}

TEST_F(TabChanges, StoreTheTabAtOnce) {
  scene.Store.Written.clear();

  scene.Select(forms::tab::Report);

  EXPECT_THAT(scene.Store.Written, ElementsAre("MainActiveTab"));
  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "6");
  EXPECT_EQ(scene.Settings.MainActiveTab, forms::tab::Report);
}

TEST_F(TabChanges, ToTheSameTabRepeatAllSteps) {
  scene.Select(forms::tab::Report);
  scene.Store.Texts["MainActiveTab"] = "overwritten";
  scene.State.ReportRequested = true;

  scene.Select(forms::tab::Report);

  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "6");
  EXPECT_FALSE(scene.State.ReportRequested);
}

TEST_F(TabChanges, StillHandleAFrameThatComesBeforeTheStop) {
  scene.Select(forms::tab::Values);
  scene.RunValues();
  const int before = scene.Block.SampleCount(0);
  scene.Events.AtPump(1, [&] { scene.Receive(SvFrame().Count(77).Bytes()); });

  scene.Select(forms::tab::Setup);

  EXPECT_NE(before, 77);
  EXPECT_EQ(scene.Block.SampleCount(0), 77);
}

TEST_F(TabChanges, TurnTheValuesAndTheScopeOff) {
  main.CWButton4.Value = true;
  main.CWButton1.Value = true;

  scene.Select(forms::tab::Setup);

  EXPECT_FALSE(main.CWButton4.Value);
  EXPECT_FALSE(main.CWButton1.Value);
}

TEST_F(TabChanges, TurnThePhasorsOffOnlyWhenTheirViewIsEntered) {
  scene.Select(forms::tab::Phasor);
  main.CWButton2.Value = true;

  scene.Select(forms::tab::Setup);
  EXPECT_TRUE(main.CWButton2.Value);

  scene.Select(forms::tab::Phasor);
  EXPECT_FALSE(main.CWButton2.Value);
}

TEST_F(TabChanges, GiveALockedRunButtonBackAfterASecond) {
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  ASSERT_FALSE(main.CWButton4.Enabled);

  scene.Select(forms::tab::Setup);
  scene.Elapse(std::chrono::milliseconds(1000));

  EXPECT_TRUE(main.CWButton4.Enabled);
  EXPECT_FALSE(main.CWButton4.Value);
}

TEST_F(TabChanges, ToTheRecorderWithoutAStorageFolderLandOnSetup) {
  scene.Files.Folders.clear();
  int focused = 0;
  main.Text1[3].SetFocus = [&] { ++focused; };

  scene.Select(forms::tab::Recorder);

  ASSERT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(scene.LastBox().Title, "Attention");
  EXPECT_EQ(scene.LastBox().Text,
            "The given path under 'Setup' is not available!\r\n"
            "Please check the specified path for errors.");
  EXPECT_EQ(scene.LastBox().BoxIcon, platform::Icon::Exclamation);
  EXPECT_EQ(focused, 1);
  EXPECT_EQ(main.TabStrip1.SelectedTab, forms::tab::Setup);
  EXPECT_EQ(scene.Settings.MainActiveTab, forms::tab::Setup);
  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "7");
  EXPECT_TRUE(main.Picture1[3].Visible);
}

}  // namespace
