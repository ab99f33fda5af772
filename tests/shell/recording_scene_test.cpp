#include <gmock/gmock.h>

#include "support/scene.h"

namespace {

using support::SineFrame;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::SizeIs;

/// A recording in text format from the press of RUN to what follows its stop.
class Recording : public ::testing::Test, public support::Scene {
 protected:
  Recording() {
    Start();
    Select(forms::tab::Recorder);
    Calendar.Present = {2024, 3, 9, 14, 5, 7};
    Main.CWButton3.Value = true;
    Receive(SineFrame(0, 1, 1));
    Calendar.Present = {2024, 3, 9, 14, 5, 9};
  }

  static constexpr const char* Data = "c:\\StoredData\\SV record 09.03.2024 14-05-07.txt";
  static constexpr const char* Log = "c:\\StoredData\\Errorlog SV record 09.03.2024 14-05-07.txt";
};

TEST_F(Recording, EndsWithItsLogAndItsQuickView) {
  // The sample 5000 is left out.
  Receive(8000, [](int i) { return SineFrame(i < 5000 ? i : i + 1, 2, 3); });

  Main.CWButton3.Value = false;

  const std::string& log = Files.Stored.at(Log);
  EXPECT_THAT(log, HasSubstr("Measurement started              : 09.03.2024 14:05:07\r\n"
                             "Measurement stopped              : 09.03.2024 14:05:09\r\n"
                             "Duration time of data aquisition : 00:00:02 hh:mm:ss;\r\n"));
  EXPECT_THAT(log, HasSubstr("Station ID                       : MU01\r\n"));
  EXPECT_THAT(log, HasSubstr("Count of received samples        : 8000\r\n"
                             "Count of lost samples            : 1\r\n"));
  EXPECT_THAT(log, HasSubstr(": 4999 samples; start: 1, end: 5000; (acc. ~1.24975s)\r\n"));
  EXPECT_THAT(log, EndsWith("Count of received full waves     : 62\r\n"));
  EXPECT_TRUE(Main.Command9.Visible);
  EXPECT_TRUE(Main.CWGraph2.Visible);
  const std::vector<double>& current = Main.CWGraph2.Plots[0].Y;
  ASSERT_THAT(current, SizeIs(20));
  EXPECT_NEAR(current[0], 2, 0.01);
  EXPECT_NEAR(current[19], 2, 0.01);
  EXPECT_NEAR(Main.CWGraph2.Plots[4].Y.Get()[3], 3, 0.01);
  EXPECT_FALSE(Main.ProgressBar1.Visible);
  EXPECT_FALSE(Pointer.Hourglass);
}

TEST_F(Recording, SaysWhatStopWaitsForUntilAnotherTabEndsIt) {
  EXPECT_THAT(Main.StopWaits.Caption.Get(), HasSubstr("choose another tab"));

  Select(forms::tab::Values);
  Select(forms::tab::Recorder);

  EXPECT_TRUE(Main.CWButton3.Visible);
  EXPECT_EQ(Main.StopWaits.Caption, "");
}

TEST_F(Recording, TellsNothingOfARingThatWasNotFull) {
  Receive(3999, [](int i) { return SineFrame(i, 1, 1); });

  Main.CWButton3.Value = false;

  EXPECT_FALSE(Files.FileExists(Log));
  EXPECT_TRUE(Main.Command9.Visible);
  EXPECT_FALSE(Main.CWGraph2.Visible);
  EXPECT_TRUE(Dialogs.Shown.empty());
}

TEST_F(Recording, LeavesAloneAViewThatBeginsAmongTheFramesThatHadArrived) {
  Receive(4000, [](int i) { return SineFrame(i, 1, 1); });
  for (int i = 0; i < 800; ++i) Capture.Arrive(SineFrame(i, 1, 1));
  Events.AtPump(2, [this] {
    ASSERT_TRUE(State.LookingForRecording) << "which the frames are still delivered to";
    Select(forms::tab::Values);
    Main.CWButton4.Value = true;
  });

  Main.CWButton3.Value = false;

  EXPECT_TRUE(State.LookingForValues);
  EXPECT_TRUE(State.CaptureRunning);
  EXPECT_TRUE(Capture.Running);
  for (const auto& lamp : Main.Shape12) EXPECT_TRUE(lamp.Visible);
}

/// The window gets another size in a pump of the recording's end or of its beginning.
class RecordingResized : public Recording, public ::testing::WithParamInterface<int> {
 protected:
  void ResizeInThePump() {
    Main.Window.State = platform::WindowState::Normal;
    Events.AtPump(GetParam(), [this] {
      resized = true;
      Main.Window.TakeSize(20000, 15000);
    });
  }

  bool resized = false;
};

TEST_P(RecordingResized, EndsWithItsLogAndItsQuickView) {
  Receive(4000, [](int i) { return SineFrame(i, 2, 3); });
  ResizeInThePump();

  Main.CWButton3.Value = false;

  ASSERT_TRUE(resized);
  EXPECT_EQ(Main.Label5[0].Width, 5332) << "the layout is done";
  EXPECT_EQ(Main.TabStrip1.SelectedTab, forms::tab::Recorder);
  EXPECT_TRUE(Files.FileExists(Log));
  EXPECT_TRUE(Main.Command9.Visible);
  EXPECT_TRUE(Main.CWGraph2.Visible);
  EXPECT_TRUE(Main.CWButton3.Visible);
}

TEST_P(RecordingResized, BeginsAsUsual) {
  Main.CWButton3.Value = false;
  ResizeInThePump();

  Main.CWButton3.Value = true;

  ASSERT_TRUE(resized);
  EXPECT_TRUE(State.LookingForRecording);
  EXPECT_TRUE(State.CaptureRunning);
  EXPECT_TRUE(Main.CWButton3.Value);
  EXPECT_FALSE(Main.CWButton3.Visible) << "until a ring is on disk";
  for (const auto& format : Main.Option2) EXPECT_FALSE(format.Enabled);
}

/// Those of a beginning and of an end, their own ones and those of capture.
INSTANTIATE_TEST_SUITE_P(Pumps, RecordingResized, ::testing::Values(1, 2, 3, 4));

TEST_F(Recording, OpensItsFilesFromThePage) {
  Receive(4000, [](int i) { return SineFrame(i, 1, 1); });

  Main.Label10[forms::record_line::FirstPath].DblClick();
  Main.CWButton3.Value = false;
  Main.Command9.Click();

  EXPECT_EQ(Links.Opened, (std::vector<std::string>{Data, Log}));
}

}  // namespace
