// A press of the button, or a change of the tab, at each moment of a recording.

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using testing::ElementsAre;
namespace line = forms::record_line;

class Press : public testing::Test {
 protected:
  void Toggle() { bench.Main.CWButton3.Value = !bench.Main.CWButton3.Value; }
  /// What a change of the tab does to the acquisition.
  void ChangeTab() {
    bench.Acquisition.StopCapture();
    ++bench.State.PagesLeft;
    bench.Core.Run.ClearModes();
    bench.Main.CWButton3.Visible = false;
    bench.Main.Command9.Visible = false;
  }
  RecorderBench bench;
};

TEST_F(Press, WhileTheRecorderIsBusyDoesNothing) {
  bench.State.RecorderBusy = true;
  Toggle();
  Toggle();
  EXPECT_THAT(bench.Journal, testing::Not(testing::Contains("pump")));
  EXPECT_FALSE(bench.State.LookingForRecording);
}

TEST_F(Press, InTheFirstPumpOfAStartDropsIt) {
  bench.Journal.clear();
  bench.Events.AtPump(1, [&] { Toggle(); });
  Toggle();
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_THAT(bench.Journal, ElementsAre("pump")) << "neither a start nor a stop";
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
}

TEST_F(Press, InTheSecondPumpOfAStartDropsItAndGivesThePageBack) {
  bench.Events.AtPump(2, [&] { Toggle(); });
  Toggle();
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_EQ(bench.Times("start"), 0);
  EXPECT_EQ(bench.Times("log"), 0);
  EXPECT_FALSE(bench.State.RecorderBusy);
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
  for (const platform::OptionButton& format : bench.Main.Option2) EXPECT_TRUE(format.Enabled);
  EXPECT_EQ(bench.Main.Label10[line::Progress].ForeColor.Get(), (platform::Rgb{0, 0, 0}));
}

TEST_F(Press, OfStopAndRunInThePumpOfAStartLetsItGoOn) {
  bench.Events.AtPump(1, [&] {
    Toggle();
    Toggle();
  });
  Toggle();
  EXPECT_TRUE(bench.State.LookingForRecording);
  EXPECT_EQ(bench.Times("start"), 1);
}

TEST_F(Press, OfAFormatWhileTheyAreLockedDoesNotCount) {
  bench.Events.AtPump(2, [&] { bench.Main.Option2[2].Value = true; });
  Toggle();
  EXPECT_EQ(bench.Settings.FileFormat, "TXT");
  EXPECT_TRUE(bench.Main.Option2[0].Value) << "the choice is shown as it is";
  EXPECT_EQ(bench.State.RecordFileName, Started + ".txt");
}

TEST_F(Press, WhileTheFirstFrameIsAwaitedStops) {
  Toggle();
  Toggle();
  EXPECT_FALSE(bench.State.LookingForRecording);
  EXPECT_FALSE(bench.State.CaptureRunning);
  EXPECT_EQ(bench.Content(Started + ".txt"), "") << "the one that is read back";
}

TEST_F(Press, WhileTheFirstRingFillsStopsWithoutASample) {
  bench.Run("TXT");
  bench.Frames(2000);
  Toggle();
  EXPECT_FALSE(bench.State.LookingForRecording);
  EXPECT_EQ(bench.Content(Started + ".txt"), "");
}

/// The pumps of a stop: its own first one, two of capture, and the one that shows the analysis.
class PressInStop : public Press, public testing::WithParamInterface<int> {};

TEST_P(PressInStop, DoesNotBeginAnother) {
  bench.Run("TXT");
  bench.Frames(4000);
  bench.Journal.clear();
  bench.Events.AtPump(GetParam(), [&] { Toggle(); });
  Toggle();
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_FALSE(bench.State.LookingForRecording);
  EXPECT_EQ(bench.Times("start"), 0);
  EXPECT_EQ(bench.Times("log"), 1);
  EXPECT_EQ(bench.Times("view"), 1);
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
}

TEST_P(PressInStop, LeavesARecorderThatStartsAgain) {
  bench.Run("TXT");
  bench.Frames(4000);
  bench.Events.AtPump(GetParam(), [&] { Toggle(); });
  Toggle();
  bench.Calendar.Present.Second = 8;
  bench.Run("TXT");
  bench.Frames(4000);
  EXPECT_TRUE(bench.Content("SV record 09.03.2024 14-05-08.txt").starts_with("0;"));
}

TEST_P(PressInStop, OfAnotherTabKeepsItFreeOfWhatBelongsHere) {
  bench.Run("TXT");
  bench.Frames(4000);
  bench.Journal.clear();
  bench.Events.AtPump(GetParam(), [&] { ChangeTab(); });
  Toggle();
  EXPECT_EQ(bench.Times("log"), 1) << "the recording is finished all the same";
  EXPECT_EQ(bench.Times("view"), 0);
  EXPECT_FALSE(bench.Main.Command9.Visible);
}

TEST_P(PressInStop, OfAFormatDoesNotChangeIt) {
  bench.Run("TXT");
  bench.Frames(4000);
  bench.Journal.clear();
  bench.Events.AtPump(GetParam(), [&] { bench.Main.Option2[2].Value = true; });
  Toggle();
  EXPECT_EQ(bench.Settings.FileFormat, "TXT");
  EXPECT_TRUE(bench.Main.Option2[0].Value) << "the choice is shown as it is";
  EXPECT_FALSE(bench.Main.Option2[2].Value);
  EXPECT_EQ(bench.State.RecordFileName, Started + ".txt");
  EXPECT_EQ(bench.Times("log"), 1);
  bench.Main.Option2[2].Value = true;
  EXPECT_EQ(bench.Settings.FileFormat, "COMTRADE") << "behind it the choice is free";
}

INSTANTIATE_TEST_SUITE_P(Pumps, PressInStop, testing::Values(1, 2, 3, 4));

TEST_F(Press, WhileTheLogIsMadeDoesNotBeginAnother) {
  bench.Run("TXT");
  bench.Frames(4000);
  bench.Reader.AtLog = [&] { Toggle(); };
  Toggle();
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_EQ(bench.Times("log"), 1);
  EXPECT_FALSE(bench.State.CaptureRunning);
}

/// The pumps of a start: its own two, and two of capture.
class TabInStart : public Press, public testing::WithParamInterface<int> {};

TEST_P(TabInStart, DropsTheStart) {
  bench.Events.AtPump(GetParam(), [&] { ChangeTab(); });
  Toggle();
  EXPECT_EQ(bench.Times("start"), 0);
  EXPECT_FALSE(bench.State.LookingForRecording);
  EXPECT_FALSE(bench.State.RecorderBusy);
  EXPECT_FALSE(bench.Main.CWButton3.Visible);
}

INSTANTIATE_TEST_SUITE_P(Pumps, TabInStart, testing::Values(1, 2, 3, 4));

TEST_F(Press, BehindAStopThatFailedInsideWorks) {
  const auto fail = [] { throw platform::Failure(platform::failure::DeviceIo); };
  for (const char* what : {"The log", "The quick view"}) {
    bench.Run("TXT");
    (what == std::string("The log") ? bench.Reader.AtLog : bench.Reader.AtView) = fail;
    Toggle();
    EXPECT_EQ(bench.Main.NotStored.Caption, what + std::string(" is left out: Device I/O error."));
    EXPECT_EQ(bench.Caption(line::Progress), "0s / 0 samples");
    for (const platform::OptionButton& format : bench.Main.Option2) EXPECT_TRUE(format.Enabled);
    bench.Reader.AtLog = nullptr;
    bench.Reader.AtView = nullptr;
  }
  bench.Run("TXT");
  EXPECT_TRUE(bench.State.LookingForRecording);
}

TEST_F(Press, ThatFailsInTheMidstOfAStartGivesThePageBack) {
  for (const int pump : {1, 2}) {
    bench.Events.AtPump(pump, [] { throw std::bad_alloc(); });
    Toggle();
    EXPECT_FALSE(bench.Main.CWButton3.Value) << pump;
    EXPECT_TRUE(bench.Main.CWButton3.Visible) << pump;
    EXPECT_FALSE(bench.State.RecorderBusy) << pump;
    EXPECT_FALSE(bench.State.CaptureRunning) << pump;
    for (const platform::OptionButton& format : bench.Main.Option2) EXPECT_TRUE(format.Enabled);
    EXPECT_EQ(bench.Main.NotStored.Caption, "The recording did not begin: Out of memory.");
    Toggle();
    EXPECT_TRUE(bench.State.LookingForRecording) << pump;
    EXPECT_EQ(bench.Main.NotStored.Caption, "") << pump;
    Toggle();
  }
}

/// The pumps of the end at the last row of a sheet: two of capture, those of a stop, and two of
/// the stop behind it.
class PressAtTheLastRow : public Press, public testing::WithParamInterface<int> {};

TEST_P(PressAtTheLastRow, BeginsNoRecordingThatWouldBeEndedAtOnce) {
  bench.Run("EXCEL");
  for (int ring = 0; ring < 8; ++ring) bench.WriteRing(0);
  const std::string progress = bench.Caption(line::Progress);
  bench.Events.AtPump(GetParam(), [&] { Toggle(); });
  bench.WriteRing(0);
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
  EXPECT_EQ(bench.Times("start"), 0);
  EXPECT_EQ(bench.Times("view"), 1);
  EXPECT_EQ(bench.Caption(line::Progress), progress);
  EXPECT_EQ(bench.Main.Label10[line::Progress].ForeColor.Get(), (platform::Rgb{0, 0, 0}));
  EXPECT_EQ(bench.State.RecordFileName, Started + ".xls");
  EXPECT_TRUE(bench.Content(Started + ".xls").ends_with(std::string("\x0A\0\0\0", 4)));
  bench.Calendar.Present.Second = 8;
  bench.Run("EXCEL");
  EXPECT_TRUE(bench.State.CaptureRunning);
}

TEST_P(PressAtTheLastRow, OfAFormatDoesNotChangeIt) {
  bench.Run("EXCEL");
  for (int ring = 0; ring < 8; ++ring) bench.WriteRing(0);
  bench.Events.AtPump(GetParam(), [&] { bench.Main.Option2[2].Value = true; });
  bench.WriteRing(0);
  EXPECT_EQ(bench.Settings.FileFormat, "EXCEL");
  EXPECT_TRUE(bench.Main.Option2[1].Value);
  EXPECT_TRUE(bench.Content(Started + ".xls").ends_with(std::string("\x0A\0\0\0", 4)));
}

INSTANTIATE_TEST_SUITE_P(Pumps, PressAtTheLastRow, testing::Range(1, 9));

/// STOP and RUN in the pumps of the end on a full disk: two of capture in front of the box, and
/// those of a stop.
class PressOnAFullDisk : public Press, public testing::WithParamInterface<int> {};

TEST_P(PressOnAFullDisk, EndsItOnce) {
  bench.Run("TXT");
  bench.WriteRing(0);
  bench.Disk.FailingWrite = 2;
  bench.Journal.clear();
  bench.Events.AtPump(GetParam(), [&] {
    Toggle();
    Toggle();
  });
  bench.WriteRing(0);
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_EQ(bench.Times("start"), 0);
  EXPECT_EQ(bench.Times("log"), 1);
  EXPECT_EQ(bench.Times("view"), 1);
  EXPECT_EQ(bench.Dialogs.Shown.size(), 1U);
  bench.Run("TXT");
  EXPECT_TRUE(bench.State.CaptureRunning);
}

INSTANTIATE_TEST_SUITE_P(Pumps, PressOnAFullDisk, testing::Range(1, 7));

/// RUN in the pumps of a stop, in the first of which the last row of a worksheet comes.
class PressBehindAnEndWithinAStop : public Press, public testing::WithParamInterface<int> {};

TEST_P(PressBehindAnEndWithinAStop, BeginsNothing) {
  bench.Run("EXCEL");
  for (int ring = 0; ring < 8; ++ring) bench.WriteRing(0);
  bench.Journal.clear();
  bench.Events.AtPump(1, [&] {
    bench.WriteRing(0);
    bench.Events.AtPump(GetParam(), [&] { bench.Main.CWButton3.Value = true; });
  });
  bench.Main.CWButton3.Value = false;
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_EQ(bench.Times("start"), 0);
  EXPECT_EQ(bench.Times("view"), 1);
}

INSTANTIATE_TEST_SUITE_P(Pumps, PressBehindAnEndWithinAStop, testing::Range(1, 4));

TEST_F(Press, IsTakenBackByTheRowLimitWithinTheWriter) {
  bench.Run("EXCEL");
  for (int ring = 0; ring < 8; ++ring) bench.WriteRing(0);
  bench.Events.AtPump(1, [&] { Toggle(); });
  bench.WriteRing(0);
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_EQ(bench.Times("start"), 0);
}

}  // namespace
}  // namespace recorder_tests
