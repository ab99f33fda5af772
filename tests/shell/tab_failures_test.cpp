#include "base/failure.h"
#include "shell/tab_scene.h"

namespace {

using platform::Failure;
using platform::failure::HarmlessStop;
using std::chrono::milliseconds;

/// A change of the tab, into whose pumps failures are placed.
class TabFailures : public shell_tests::TabScene {
 protected:
  /// The next pump behind every assignment of the property meets the failure.
  template <typename T>
  void FailBehind(platform::Property<T>& property, std::int32_t number) {
    property.Observe([this, number] { FailAtPump(1, number); });
  }
  void FailAtPump(int n, std::int32_t number) {
    scene.Events.AtPump(n, [this, number] {
      ++failures;
      throw Failure(number);
    });
  }

  int failures = 0;
};

TEST_F(TabFailures, OfAHarmlessStopAreSkippedInItsOwnPumps) {
  FailAtPump(1, HarmlessStop);
  FailAtPump(2, HarmlessStop);

  scene.Select(forms::tab::Report);

  EXPECT_EQ(failures, 2);
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
  EXPECT_EQ(scene.Settings.MainActiveTab, forms::tab::Report);
  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "6");
  EXPECT_TRUE(main.Command2.Visible);
}

TEST_F(TabFailures, InTheStopOfTheValuesStillTurnTheScopeOff) {
  scene.RunValues();
  main.CWButton1.Value = true;
  ASSERT_FALSE(main.Timer3.Enabled);
  FailBehind(main.CWButton4.Value, HarmlessStop);

  scene.Select(forms::tab::Setup);

  EXPECT_EQ(failures, 1);
  EXPECT_FALSE(main.CWButton4.Value);
  EXPECT_FALSE(main.CWButton1.Value);
  EXPECT_TRUE(main.Timer3.Enabled);
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
}

TEST_F(TabFailures, InTheStopOfTheScopeStillGiveTheValuesButtonBack) {
  scene.RunValues();
  main.CWButton1.Value = true;
  FailBehind(main.CWButton1.Value, HarmlessStop);

  scene.Select(forms::tab::Setup);
  scene.Elapse(milliseconds(1000));

  EXPECT_EQ(failures, 1);
  EXPECT_TRUE(main.CWButton4.Enabled);
}

TEST_F(TabFailures, InTheStopOfTheScopeGiveItsOwnButtonBackToo) {
  main.CWButton1.Value = true;
  FailBehind(main.CWButton1.Value, HarmlessStop);

  scene.Select(forms::tab::Setup);

  EXPECT_EQ(failures, 1);
  EXPECT_FALSE(main.CWButton1.Enabled);

  scene.Elapse(milliseconds(1000));

  EXPECT_TRUE(main.CWButton1.Enabled);
}

TEST_F(TabFailures, InTheStopOfThePhasorsStillBringThemUp) {
  main.CWButton2.Value = true;
  FailBehind(main.CWButton2.Value, HarmlessStop);

  scene.Select(forms::tab::Phasor);

  EXPECT_EQ(failures, 1);
  EXPECT_FALSE(main.CWButton2.Value);
  EXPECT_TRUE(main.Frame2.Visible);
  EXPECT_TRUE(main.Label17.Visible);
  EXPECT_TRUE(main.Option3[4].Visible);
  EXPECT_FALSE(scene.State.RecorderBusy);
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
}

TEST_F(TabFailures, InTheStopOfTheRecorderStillBringItUp) {
  main.CWButton3.ValueChanged = [this] { scene.Events.Pump(); };
  main.CWButton3.Value = true;
  main.Option2[1].Enabled = false;
  FailBehind(main.CWButton3.Value, HarmlessStop);

  scene.Select(forms::tab::Recorder);

  EXPECT_EQ(failures, 1);
  EXPECT_TRUE(main.Option2[1].Enabled);
  EXPECT_FALSE(scene.State.RecorderBusy);
  EXPECT_EQ(main.Label10[3].Caption, "0s / 0 samples");
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
}

TEST_F(TabFailures, BeforeTheRefusalOfAStorageFolderDoNotKeepItBack) {
  scene.Files.Folders.clear();
  // The last that changes before the refusal pumps.
  FailBehind(main.Label10[3].Caption, HarmlessStop);

  scene.Select(forms::tab::Recorder);

  EXPECT_EQ(failures, 1);
  ASSERT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(scene.LastBox().Title, "Attention");
  EXPECT_EQ(main.TabStrip1.SelectedTab, forms::tab::Setup);
}

TEST_F(TabFailures, OfAnyOtherKindAreReportedAndEndTheProgram) {
  scene.Events.AtPump(2, [] { throw Failure(75, "Path/File access error"); });

  EXPECT_THROW(scene.Select(forms::tab::Report), support::SceneEnded);

  EXPECT_EQ(scene.LastBox(), (platform::Message{"unknown...",
                                                "unknown error. \r\nPath/File access error\r\n"
                                                "this happens while changing tabs",
                                                platform::Icon::Critical}));
}

TEST_F(TabFailures, OfAnyOtherKindEndTheProgramFromTheStopOfAViewToo) {
  main.CWButton2.Value = true;
  FailBehind(main.CWButton2.Value, platform::failure::DeviceIo);

  EXPECT_THROW(scene.Select(forms::tab::Phasor), support::SceneEnded);

  ASSERT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(scene.LastBox().Title, "unknown...");
}

TEST_F(TabFailures, InTheFormatDoNotLeaveTheRecorderBusy) {
  scene.Settings.FileFormat = "EXCEL";
  main.Option2[1].Value.Observe([] { throw Failure(HarmlessStop); });
  main.Label10[3].Caption = std::string();

  scene.Select(forms::tab::Recorder);

  EXPECT_TRUE(main.Option2[1].Value);
  EXPECT_FALSE(scene.State.RecorderBusy);
  EXPECT_EQ(main.Label10[3].Caption, "0s / 0 samples");
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
}

TEST_F(TabFailures, InTheReportDoNotKeepItsLogoBack) {
  main.QuietLine[forms::quiet_line::Report].Caption.Observe([this] {
    ++failures;
    throw Failure(HarmlessStop);
  });

  scene.Select(forms::tab::Report);

  EXPECT_EQ(failures, 1);
  EXPECT_TRUE(main.Picture1[2].Visible);
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
}

}  // namespace
