#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using support::Scene;
using support::SvFrame;
using ::testing::ElementsAre;

/// The program after its start, on the information page.
class TabChanges : public ::testing::Test {
 protected:
  TabChanges() {
    scene.Start();
    scene.Select(1);
  }

  Scene scene;
  forms::Main& main = scene.Main;
};

TEST_F(TabChanges, StopTheAcquisitionAsAWhole) {
  scene.Select(2);
  scene.RunValues();
  scene.State.LookingForPhases = true;
  scene.State.LookingForScope = true;
  scene.State.LookingForRecording = true;
  scene.State.LookingForID = true;
  scene.State.ReportRequested = true;

  scene.Select(7);

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

  scene.Select(7);

  EXPECT_THAT(scene.Journal, ElementsAre("pump", "pump", "stop", "pump", "clear", "pump"));
}

TEST_F(TabChanges, StoreTheTabAtOnce) {
  scene.Store.Written.clear();

  scene.Select(6);

  EXPECT_THAT(scene.Store.Written, ElementsAre("MainActiveTab"));
  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "6");
  EXPECT_EQ(scene.Settings.MainActiveTab, 6);
}

TEST_F(TabChanges, ToTheSameTabRepeatAllSteps) {
  scene.Select(6);
  scene.Store.Texts["MainActiveTab"] = "overwritten";
  scene.State.ReportRequested = true;

  scene.Select(6);

  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "6");
  EXPECT_FALSE(scene.State.ReportRequested);
}

TEST_F(TabChanges, StillHandleAFrameThatComesBeforeTheStop) {
  scene.Select(2);
  scene.RunValues();
  const int before = scene.Block.SampleCount(0);
  scene.Events.AtPump(1, [&] { scene.Receive(SvFrame().Count(77).Bytes()); });

  scene.Select(7);

  EXPECT_NE(before, 77);
  EXPECT_EQ(scene.Block.SampleCount(0), 77);
}

TEST_F(TabChanges, BringUpTheInformationPage) {
  scene.Select(7);
  EXPECT_FALSE(main.Picture4.Visible);

  scene.Select(1);

  EXPECT_TRUE(main.Picture4.Visible);
  EXPECT_FALSE(main.Frame1.Visible);
  EXPECT_FALSE(main.Frame2.Visible);
}

TEST_F(TabChanges, BringUpTheValues) {
  scene.Select(2);

  for (const auto& value : main.Label5) EXPECT_TRUE(value.Visible);
  EXPECT_TRUE(main.Picture1[4].Visible);
  EXPECT_TRUE(main.Check5.Visible);
  EXPECT_TRUE(main.CWButton4.Visible);
  EXPECT_TRUE(main.Label16.Visible);
  EXPECT_TRUE(main.Option3[0].Visible);
  EXPECT_TRUE(main.Option3[0].Value);
  EXPECT_FALSE(main.Option3[1].Visible);
  EXPECT_FALSE(main.CWButton3.Visible);
  EXPECT_FALSE(main.Command2.Visible);
}

TEST_F(TabChanges, BringUpThePhasorView) {
  scene.Select(3);

  EXPECT_TRUE(main.Frame2.Visible);
  EXPECT_TRUE(main.Picture1[5].Visible);
  EXPECT_TRUE(main.Label17.Visible);
  EXPECT_TRUE(main.Option3[4].Visible);
  EXPECT_FALSE(main.Option3[5].Visible);
  EXPECT_FALSE(main.Frame1.Visible);
  EXPECT_FALSE(main.CWButton4.Visible);
  EXPECT_FALSE(scene.State.RecorderBusy);
}

TEST_F(TabChanges, BringUpTheWaveforms) {
  scene.Select(4);

  EXPECT_TRUE(main.CWGraph1.Visible);
  EXPECT_TRUE(main.Frame1.Visible);
  EXPECT_TRUE(main.Picture1[0].Visible);
  EXPECT_TRUE(main.Option3[2].Visible);
  EXPECT_FALSE(main.Option3[3].Visible);
}

TEST_F(TabChanges, BringUpTheRecorder) {
  main.Label10[3].FontBold = true;
  main.Label10[3].ForeColor = platform::Rgb{255, 0, 0};
  main.Label10[4].Visible = true;
  for (auto& format : main.Option2) format.Enabled = false;

  scene.Select(5);

  EXPECT_TRUE(main.Picture1[1].Visible);
  EXPECT_TRUE(main.CWButton3.Visible);
  EXPECT_FALSE(main.CWButton3.Value);
  for (const auto& format : main.Option2) EXPECT_TRUE(format.Enabled);
  EXPECT_EQ(main.Label10[3].Caption, "0s / 0 samples");
  EXPECT_FALSE(main.Label10[3].FontBold);
  EXPECT_EQ(main.Label10[3].ForeColor, (platform::Rgb{0, 0, 0}));
  EXPECT_EQ(main.Label10[1].Caption,
            "c:\\StoredData\\SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
  EXPECT_EQ(main.Label10[4].Caption,
            "c:\\StoredData\\2_SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
  EXPECT_FALSE(main.Label10[4].Visible);
  EXPECT_EQ(scene.State.RecordFileName, "SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
  EXPECT_FALSE(scene.State.RecorderBusy);
}

TEST_F(TabChanges, KeepTheNameOfARecordingButShowTheFixedText) {
  scene.State.RecordFileName = "SV record 21.11.2026 10-00-00.txt";

  scene.Select(5);

  EXPECT_EQ(scene.State.RecordFileName, "SV record 21.11.2026 10-00-00.txt");
  EXPECT_EQ(main.Label10[1].Caption,
            "c:\\StoredData\\SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')");
}

TEST_F(TabChanges, BringUpTheReport) {
  scene.Select(6);

  EXPECT_TRUE(main.Command2.Visible);
  EXPECT_TRUE(main.Command4.Visible);
  EXPECT_TRUE(main.Option3[6].Visible);
  EXPECT_FALSE(main.Option3[7].Visible);
  EXPECT_TRUE(main.Picture1[2].Visible);
}

TEST_F(TabChanges, BringUpTheSetup) {
  scene.Select(7);

  EXPECT_TRUE(main.Picture1[3].Visible);
  EXPECT_FALSE(main.Picture1[2].Visible);
}

TEST_F(TabChanges, ShowTheSecondStationWhereItHasAContent) {
  main.Text1[14].Text = "MU02";

  scene.Select(2);
  EXPECT_TRUE(main.Option3[1].Visible);
  scene.Select(3);
  EXPECT_TRUE(main.Option3[5].Visible);
  EXPECT_FALSE(main.Option3[1].Visible);
  scene.Select(4);
  EXPECT_TRUE(main.Option3[3].Visible);
  scene.Select(5);
  EXPECT_TRUE(main.Label10[4].Visible);
  scene.Select(6);
  EXPECT_TRUE(main.Option3[7].Visible);
}

TEST_F(TabChanges, CarryTheChosenStationFromViewToView) {
  main.Text1[14].Text = "MU02";
  scene.Select(2);
  main.Option3[1].Value = true;

  scene.Select(3);
  EXPECT_TRUE(main.Option3[5].Value);
  scene.Select(4);
  EXPECT_TRUE(main.Option3[3].Value);
  scene.Select(6);
  EXPECT_TRUE(main.Option3[7].Value);
  EXPECT_EQ(scene.Settings.FilterContent[0], "MU02");
}

TEST_F(TabChanges, SetTheRecordersGraphToPan) {
  main.CWGraph2.TrackMode = platform::CWGraph::ZoomMode;

  scene.Select(4);

  EXPECT_EQ(main.CWGraph2.TrackMode, platform::CWGraph::PanMode);
}

TEST_F(TabChanges, KeepTheNumbersOfTheViewThatIsLeft) {
  scene.Select(2);
  scene.RunValues();
  scene.ReceiveBlock([](int i) { return support::SineFrame(i, 100, 10); });
  const std::string shown = main.Label5[0].Caption;

  scene.Select(7);
  scene.Select(2);

  EXPECT_EQ(main.Label5[0].Caption, shown);
  EXPECT_EQ(shown, "100.0000");
}

TEST_F(TabChanges, GiveALockedRunButtonBackAfterASecond) {
  scene.Select(2);
  main.CWButton4.Value = true;
  ASSERT_FALSE(main.CWButton4.Enabled);

  scene.Select(7);
  scene.Elapse(std::chrono::milliseconds(1000));

  EXPECT_TRUE(main.CWButton4.Enabled);
  EXPECT_FALSE(main.CWButton4.Value);
}

TEST_F(TabChanges, ToTheRecorderWithoutAStorageFolderLandOnSetup) {
  scene.Files.Folders.clear();
  int focused = 0;
  main.Text1[3].SetFocus = [&] { ++focused; };

  scene.Select(5);

  ASSERT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(scene.LastBox().Title, "Attention");
  EXPECT_EQ(scene.LastBox().Text,
            "The given path under 'Setup' is not available!\r\n"
            "Please check the specified path for errors.");
  EXPECT_EQ(scene.LastBox().BoxIcon, platform::Icon::Exclamation);
  EXPECT_EQ(focused, 1);
  EXPECT_EQ(main.TabStrip1.SelectedTab, 7);
  EXPECT_EQ(scene.Settings.MainActiveTab, 7);
  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "7");
  EXPECT_TRUE(main.Picture1[3].Visible);
}

TEST_F(TabChanges, SkipTheHarmlessStopFailure) {
  scene.Capture.StopFailure = platform::Failure(platform::failure::HarmlessStop);

  scene.Select(6);

  EXPECT_TRUE(scene.Dialogs.Shown.empty());
  EXPECT_TRUE(main.Command2.Visible);
}

TEST_F(TabChanges, ReportAnyOtherFailureAndEndTheProgram) {
  scene.Events.AtPump(2, [] { throw platform::Failure(75, "Path/File access error"); });

  EXPECT_THROW(scene.Select(6), support::SceneEnded);

  EXPECT_EQ(scene.LastBox(), (platform::Message{"unknown...",
                                                "unknown error. \r\nPath/File access error\r\n"
                                                "this happens while changing tabs",
                                                platform::Icon::Critical}));
}

}  // namespace
