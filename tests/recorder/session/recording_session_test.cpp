#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using platform::Rgb;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
namespace line = forms::record_line;

const Rgb LightRed{255, 0, 0};

class RecordingSession : public testing::Test {
 protected:
  /// Whether each format can be chosen.
  std::vector<bool> Choosable() const {
    std::vector<bool> enabled;
    for (const platform::OptionButton& format : bench.Main.Option2)
      enabled.push_back(format.Enabled);
    return enabled;
  }

  RecorderBench bench;
};

/// A choice and what it stands for.
struct Format {
  std::size_t Index;
  const char* Name;
  const char* Placeholder;
  const char* Extension;
};
const Format Formats[] = {
    {0, "TXT", "SV record dd.mm.yyyy hh-MM-ss.txt (after 'RUN')", ".txt"},
    {1, "EXCEL", "SV record dd.mm.yyyy hh-MM-ss.xls (after 'RUN')", ".xls"},
    {2, "COMTRADE", "SV record dd.mm.yyyy hh-MM-ss.dat (after 'RUN')", ".dat"},
};

TEST_F(RecordingSession, TakesTheFormatOfTheChoice) {
  for (const std::size_t index : {1U, 2U, 0U}) {
    const Format& format = Formats[index];
    bench.Store.Written.clear();
    bench.Main.Option2[format.Index].Value = true;
    EXPECT_EQ(bench.Settings.FileFormat, format.Name);
    EXPECT_EQ(bench.State.RecordFileName, format.Placeholder);
    EXPECT_EQ(bench.Caption(line::FirstPath), RecorderBench::Path(format.Placeholder));
    EXPECT_FALSE(bench.Store.Written.empty());
    EXPECT_EQ(bench.Store.Texts["FileFormat"], format.Name);
  }
}

TEST_F(RecordingSession, KeepsTheQuickViewWithTheTextFormatAlone) {
  const auto shownWith = [&](std::size_t index) {
    bench.Main.CWGraph2.Visible = true;
    bench.Main.Command9.Visible = true;
    bench.Main.Option2[index].Value = true;
    EXPECT_EQ(bench.Main.CWGraph2.Visible.Get(), bench.Main.Command9.Visible.Get());
    return bench.Main.CWGraph2.Visible.Get();
  };
  EXPECT_FALSE(shownWith(1));
  EXPECT_FALSE(shownWith(2));
  EXPECT_TRUE(shownWith(0));
}

TEST_F(RecordingSession, TakesNoChoiceWhileTheRecorderIsBusy) {
  bench.State.RecorderBusy = true;
  bench.Main.Option2[2].Value = true;
  EXPECT_EQ(bench.Settings.FileFormat, "TXT");
  EXPECT_THAT(bench.Store.Written, IsEmpty());
}

TEST_F(RecordingSession, ShowsTheStoredFormat) {
  for (const Format& format : Formats) {
    bench.Settings.FileFormat = format.Name;
    bench.Session.ShowFileFormat();
    EXPECT_TRUE(bench.Main.Option2[format.Index].Value) << format.Name;
  }
}

TEST_F(RecordingSession, ShowsNoChoiceForAnUnknownFormat) {
  bench.Settings.FileFormat = "excel";
  bench.Session.ShowFileFormat();
  for (const platform::OptionButton& format : bench.Main.Option2) EXPECT_FALSE(format.Value);
  EXPECT_EQ(bench.Settings.FileFormat, "excel");
}

TEST_F(RecordingSession, StartsInItsOrder) {
  bench.Session.ShowFileFormat();
  bench.Journal.clear();
  bench.Watch(bench.Main.Label10[line::Progress].ForeColor, "colour");
  bench.Watch(bench.Main.Label10[line::Progress].Caption, "progress");
  bench.Watch(bench.Main.CWButton3.Visible, "button");
  for (platform::OptionButton& format : bench.Main.Option2) bench.Watch(format.Enabled, "format");
  bench.Watch(bench.Main.CWGraph2.Visible, "graph");
  bench.Watch(bench.Main.Command9.Visible, "log button");
  bench.Watch(bench.Main.Label10[line::FirstPath].Caption, "first");
  bench.Watch(bench.Main.Label10[line::SecondPath].Caption, "second");

  bench.Main.CWButton3.Value = true;

  EXPECT_THAT(
      bench.Journal,
      ElementsAre("pump", "adapter Bus", "set BuffSize 33554432", "set BuffMinToCopy 0",
                  "set HWFilter 32", "set mode 1", "set BPFilter 'ether proto 0x88ba'",
                  "colour 0, 0, 0", "progress 0s / 0 samples", "colour 255, 0, 0", "button false",
                  "format false", "format false", "format false", "pump", "graph false",
                  "log button false", "first " + RecorderBench::Path("1_" + Started + ".txt"),
                  "second " + RecorderBench::Path("2_" + Started + ".txt"), "stop", "pump", "clear",
                  "pump", "start"));
  EXPECT_TRUE(bench.State.LookingForRecording);
  EXPECT_TRUE(bench.State.CaptureRunning);
  EXPECT_TRUE(bench.State.PacketLengthPending);
  EXPECT_FALSE(bench.State.RecorderBusy);
  EXPECT_EQ(bench.Main.Timer1.Interval, 2000);
  EXPECT_THAT(bench.Names(), IsEmpty()) << "no file exists before the first ring is full";
}

TEST_F(RecordingSession, StartsWithTheCountersAtZero) {
  bench.State.BlockCount = 5;
  bench.State.BlockCount2 = 6;
  bench.Main.CWButton3.Value = true;
  EXPECT_EQ(bench.State.BlockCount, 0);
  EXPECT_EQ(bench.State.BlockCount2, 0);
}

TEST_F(RecordingSession, NamesTheFileAfterItsStart) {
  bench.Calendar.Present = {2031, 12, 1, 3, 4, 59};
  for (const Format& format : Formats) {
    bench.Run(format.Name);
    EXPECT_EQ(bench.State.RecordFileName,
              std::string("SV record 01.12.2031 03-04-59") + format.Extension);
    bench.Stop();
  }
}

TEST_F(RecordingSession, KeepsTheOldNameInAnUnknownFormat) {
  bench.Settings.FileFormat = "none";
  bench.State.RecordFileName = "old";
  bench.Main.CWButton3.Value = true;
  EXPECT_EQ(bench.State.RecordFileName, "old");
  EXPECT_EQ(bench.Caption(line::FirstPath), RecorderBench::Path("1_old"));
}

TEST_F(RecordingSession, ShowsAPrefixThatTheFileOfOneStreamHasNot) {
  bench.Run("TXT");
  bench.Frames(4000);
  EXPECT_EQ(bench.Caption(line::FirstPath), RecorderBench::Path("1_" + Started + ".txt"));
  EXPECT_THAT(bench.Names(), ElementsAre(Started + ".txt"));
}

TEST_F(RecordingSession, StoresWholeRingsAndDropsTheRest) {
  bench.Run("TXT");
  bench.Frames(10000);
  bench.Stop();
  EXPECT_THAT(Lines(bench.Content(Started + ".txt")), SizeIs(8000));
}

TEST_F(RecordingSession, StoresWhatHadArrivedBeforeTheStop) {
  bench.Run("TXT");
  bench.Frames(4000);
  for (int i = 0; i < 8000; ++i) bench.Capture.Arrive(support::PlainFrame(i % 4000));
  bench.Stop();
  EXPECT_THAT(Lines(bench.Content(Started + ".txt")), SizeIs(12000));
  EXPECT_EQ(bench.Caption(line::Progress), "2.7s / 10800 samples");
}

TEST_F(RecordingSession, StoresNothingBehindAFullDiskAmongWhatHadArrived) {
  bench.Run("TXT");
  bench.Frames(4000);
  for (int i = 0; i < 12000; ++i) bench.Capture.Arrive(support::PlainFrame(i % 4000));
  bench.Disk.FailingWrite = bench.Disk.Writes + 2;
  bench.Stop();
  EXPECT_THAT(bench.Dialogs.Shown, SizeIs(1));
  EXPECT_EQ(bench.Disk.Writes, 3);
  EXPECT_FALSE(bench.State.CaptureRunning);
}

TEST_F(RecordingSession, LeavesWhatHadArrivedWhereTheWriterEndsIt) {
  bench.Run("EXCEL");
  for (int ring = 0; ring < 8; ++ring) bench.WriteRing(0);
  bench.Fill(0);
  for (int i = 0; i < 4000; ++i) bench.Capture.Arrive(support::PlainFrame(i % 4000));
  bench.WriteRing(0);
  EXPECT_FALSE(bench.State.CaptureRunning);
  EXPECT_EQ(bench.Rings.RecordChannel[0](3999), ValueAt(0, 0, 3999)) << "its ring stays its own";
}

TEST_F(RecordingSession, CountsNineTenthsOfTheTruth) {
  bench.Run("TXT");
  bench.Frames(8000);
  EXPECT_EQ(bench.Caption(line::Progress), "1.8s / 7200 samples");
  EXPECT_EQ(bench.Main.Label10[line::Progress].ForeColor.Get(), LightRed);
}

TEST_F(RecordingSession, BringsItsButtonWithTheFirstRing) {
  bench.Run("TXT");
  bench.Frames(3999);
  EXPECT_FALSE(bench.Main.CWButton3.Visible);
  bench.Frames(1, "MU01", 3999);
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
}

TEST_F(RecordingSession, BringsItsButtonWithTheFirstRingOfTheSecondStreamToo) {
  bench.TakeBoth();
  bench.Run("TXT");
  bench.Frames(4000, "MU02");
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
  EXPECT_THAT(bench.Names(), ElementsAre("2_" + Started + ".txt"));
}

TEST_F(RecordingSession, StopsInItsOrder) {
  bench.Run("TXT");
  bench.Frames(4000);
  bench.Journal.clear();
  bench.Watch(bench.Main.Label10[line::Progress].ForeColor, "colour");
  bench.Watch(bench.Main.Label10[line::Progress].Caption, "progress");
  bench.Watch(bench.Main.Command9.Visible, "log button");
  for (platform::OptionButton& format : bench.Main.Option2) bench.Watch(format.Enabled, "format");

  bench.Stop();

  const std::string progress = "0.9s / 3600 samples";
  EXPECT_THAT(bench.Journal,
              ElementsAre("pump", "stop", "pump", "clear", "pump", "colour 0, 0, 0",
                          "progress " + progress + "; please keep patient, analysis running...",
                          "pump", "log", "progress " + progress, "log button true", "view",
                          "format true", "format true", "format true"));
  EXPECT_FALSE(bench.State.LookingForRecording);
  EXPECT_FALSE(bench.State.CaptureRunning);
}

TEST_F(RecordingSession, HasALogInTheTextFormatAlone) {
  for (const char* format : {"EXCEL", "COMTRADE"}) {
    bench.Run(format);
    bench.Frames(4000);
    bench.Journal.clear();
    bench.Stop();
    EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", "pump", "view"))
        << format;
    EXPECT_FALSE(bench.Main.Command9.Visible);
  }
}

TEST_F(RecordingSession, CountsASecondRecordingFromZero) {
  bench.Run("TXT");
  bench.Frames(4000);
  bench.Stop();
  bench.Calendar.Present.Second = 8;
  bench.Run("TXT");
  bench.Frames(4000);
  EXPECT_TRUE(bench.Content("SV record 09.03.2024 14-05-08.txt").starts_with("0;"));
}

TEST_F(RecordingSession, RecordsTwoStreamsASecondTimeButForTheNumbersOfTheSecondText) {
  for (const Format& format : Formats) {
    RecorderBench twice;
    twice.TakeBoth();
    const auto record = [&](std::int32_t second) {
      twice.Calendar.Present.Second = second;
      twice.Run(format.Name);
      for (int i = 0; i < 4600; ++i) {
        twice.Receive(support::PlainFrame(i % 4000, "MU01", 1000 + i));
        twice.Receive(support::PlainFrame(i % 4000, "MU02", 2000 + i));
      }
      twice.Stop();
    };
    record(7);
    record(8);
    twice.Writing.Worksheet.Finish();
    for (const char* prefix : {"1_", "2_"}) {
      const std::string first =
          twice.Content(prefix + std::string("SV record 09.03.2024 14-05-07") + format.Extension);
      const std::string second =
          twice.Content(prefix + std::string("SV record 09.03.2024 14-05-08") + format.Extension);
      EXPECT_GT(first.size(), 150'000U) << format.Name << prefix;
      const bool goesOn = format.Name == std::string("TXT") && prefix == std::string("2_");
      if (goesOn) {
        EXPECT_TRUE(first.starts_with("0;"));
        EXPECT_TRUE(second.starts_with("400;"));
      } else {
        EXPECT_TRUE(first == second) << format.Name << prefix;
      }
    }
    const bool noLog = format.Name == std::string("TXT");
    EXPECT_THAT(
        twice.Main.NotStored.Caption.Get(),
        noLog ? testing::Matcher<std::string>(testing::StartsWith("Two streams have no log; "))
              : testing::Matcher<std::string>(testing::StrEq("")));
    EXPECT_THAT(twice.Dialogs.Shown, IsEmpty());
  }
}

TEST_F(RecordingSession, TellsWhichConfigurationIsIncompleteAndWhy) {
  bench.Run("COMTRADE");
  bench.Frames(4000);
  bench.Files.Folders.clear();
  bench.Stop();
  const std::string path = RecorderBench::Path(Started + ".cfg");
  ASSERT_THAT(bench.Dialogs.Shown, SizeIs(1));
  EXPECT_EQ(bench.Dialogs.Shown[0],
            (platform::Message{"Information",
                               "The file " + path +
                                   " is incomplete.\r\nPath not found.\r\n"
                                   "The samples in the data file are not affected.",
                               platform::Icon::Information}));
  EXPECT_TRUE(bench.Main.Option2[0].Enabled) << "the stop goes on";
}

TEST_F(RecordingSession, TellsThatAConfigurationHasNoDateInItsName) {
  bench.Run("COMTRADE");
  bench.State.RecordFileName = "SV record dd.mm.yyyy hh-MM-ss.dat (after 'RUN')";
  bench.Stop();
  ASSERT_THAT(bench.Dialogs.Shown, SizeIs(1));
  EXPECT_NE(bench.Dialogs.Shown[0].Text.find("Its name holds no date and time of a start.\r\n"),
            std::string::npos);
  EXPECT_THAT(bench.Names(), IsEmpty());
}

TEST_F(RecordingSession, EndsTheConfigurationBehindARingThatFailed) {
  bench.Run("COMTRADE");
  bench.WriteRing(0);
  bench.Disk.FailingWrite = bench.Disk.Writes + 1;
  bench.Disk.Number = 57;
  bench.WriteRing(0, 18);
  bench.Stop();
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
  EXPECT_THAT(Lines(bench.Content(Started + ".cfg")), SizeIs(17));
}

TEST_F(RecordingSession, EndsWithARefusedFilter) {
  bench.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  bench.Main.CWButton3.Value = true;
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
  EXPECT_THAT(Choosable(), ElementsAre(true, true, true));
}

TEST_F(RecordingSession, IsNotEndedByTheStopAtTheRowsOfAnotherFormat) {
  bench.Run("TXT");
  bench.Session.StopAtRowLimit();
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_FALSE(bench.State.LookingForRecording);
  EXPECT_THAT(bench.Names(), ElementsAre(Started + ".txt")) << "the empty one that is read back";
}

}  // namespace
}  // namespace recorder_tests
