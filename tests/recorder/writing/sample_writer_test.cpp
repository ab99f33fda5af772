#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using platform::Message;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const Message DiskFull = {"Attention",
                          "Disk full.\r\n"
                          "Please check the disk path, if you can free some disk space.\r\n"
                          "Recording ist stopped.",
                          platform::Icon::Information};

class SampleWriter : public testing::Test {
 protected:
  /// The next write to a file fails.
  void FailNextWrite(std::int32_t number) {
    bench.Disk.FailingWrite = bench.Disk.Writes + 1;
    bench.Disk.Number = number;
  }
  const std::string& NotStored() const { return bench.Main.NotStored.Caption; }

  RecorderBench bench;
  const std::string name = Started + ".txt";
};

TEST_F(SampleWriter, BringsTheButtonWithEachRing) {
  for (const std::int16_t selector : std::initializer_list<std::int16_t>{0, 1, 5}) {
    bench.Main.CWButton3.Visible = false;
    bench.Writing.Samples.WriteRecordBlock(selector);
    EXPECT_TRUE(bench.Main.CWButton3.Visible) << selector;
  }
  EXPECT_EQ(bench.Disk.Opens, 2) << "another selector writes nothing";
}

TEST_F(SampleWriter, WritesNothingInAnUnknownFormat) {
  bench.Settings.FileFormat = "txt";
  bench.Main.CWButton3.Visible = false;
  bench.WriteRing(0);
  EXPECT_THAT(bench.Names(), IsEmpty());
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
  EXPECT_EQ(bench.Main.OnDisk[0].Caption, "");
}

class FullDisk : public SampleWriter, public testing::WithParamInterface<const char*> {};

TEST_P(FullDisk, EndsTheRecordingWithABox) {
  bench.Run(GetParam());
  bench.State.BlockCount = 9;
  bench.Main.Timer1.Enabled = true;
  bench.Main.CWButton3.Enabled = false;
  FailNextWrite(61);
  bool capture = true;
  bool looking = true;
  bool watched = true;
  bool pressed = false;
  bench.Dialogs.WhileOpen = [&] {
    capture = bench.State.CaptureRunning;
    looking = bench.State.LookingForRecording;
    watched = bench.Main.Timer1.Enabled;
    pressed = bench.Main.CWButton3.Value;
  };

  bench.WriteRing(0);

  ASSERT_THAT(bench.Dialogs.Shown, SizeIs(1));
  EXPECT_EQ(bench.Dialogs.Shown[0], DiskFull);
  EXPECT_FALSE(capture || looking || watched) << "at the box";
  EXPECT_TRUE(pressed) << "at the box";
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_TRUE(bench.Main.CWButton3.Enabled);
  EXPECT_FALSE(bench.Main.CWButton3.Visible) << "the first ring brought no button";
  EXPECT_EQ(NotStored(), "") << "the box has told it";
  EXPECT_FALSE(bench.Writing.Open.IsOpen(packetroutines::TextFile));
}

INSTANTIATE_TEST_SUITE_P(Formats, FullDisk, testing::Values("TXT", "COMTRADE"));

TEST_F(SampleWriter, ShowsTheBoxInTheOrderOfTheEnd) {
  bench.Run("TXT");
  FailNextWrite(61);
  bench.WriteRing(0);
  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump", "box Attention", "pump",
                                         "stop", "pump", "clear", "pump", "pump", "log", "view"));
}

TEST_F(SampleWriter, KeepsWhatWasWrittenBeforeAFullDisk) {
  bench.Run("TXT");
  bench.WriteRing(0);
  const std::string ring = bench.Content(name);
  FailNextWrite(61);
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Content(name).starts_with(ring));
  EXPECT_GT(bench.Content(name).size(), ring.size());
}

TEST_F(SampleWriter, TakesAFullDiskAtTheClosingForOneToo) {
  bench.Run("TXT");
  bench.Disk.FailingClose = 1;
  bench.WriteRing(0);
  EXPECT_THAT(bench.Dialogs.Shown, ElementsAre(DiskFull));
}

TEST_F(SampleWriter, LosesARingQuietlyWhereItsFolderIsGone) {
  bench.Run("TXT");
  bench.Main.CWButton3.Visible = false;
  bench.Files.Folders.clear();
  bench.WriteRing(0);
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
  EXPECT_TRUE(bench.Main.CWButton3.Value);
  EXPECT_TRUE(bench.State.LookingForRecording);
  EXPECT_FALSE(bench.Main.CWButton3.Visible) << "the common end is not run";
  EXPECT_TRUE(bench.Main.NotStored.Visible);
  EXPECT_EQ(NotStored(), "stream 1: not stored since 09.03.2024 14:05:07: Path not found.");
}

TEST_F(SampleWriter, GoesOnWhereTheFolderHasComeBack) {
  bench.Run("TXT");
  bench.Files.Folders.clear();
  bench.WriteRing(0);
  bench.Files.Folders.insert("c:\\StoredData");
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Content(name).starts_with("0;")) << "only stored rings are counted";
  EXPECT_EQ(NotStored(),
            "stream 1: stored again since 09.03.2024 14:05:07; 1 ring lost: Path not found.");
  bench.WriteRing(0);
  bench.Files.Folders.clear();
  bench.WriteRing(0);
  EXPECT_EQ(NotStored(),
            "stream 1: not stored since 09.03.2024 14:05:07: Path not found; 1 ring lost before.");
}

TEST_F(SampleWriter, LosesAllLaterRingsWhereAWriteFailed) {
  bench.Run("TXT");
  bench.WriteRing(0);
  FailNextWrite(57);
  bench.WriteRing(0);
  bench.Calendar.Present.Hour = 20;
  const std::string content = bench.Content(name);
  bench.WriteRing(0);
  bench.WriteRing(0);
  EXPECT_EQ(bench.Content(name), content);
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
  EXPECT_TRUE(bench.Main.CWButton3.Value);
  EXPECT_EQ(NotStored(), "stream 1: not stored since 09.03.2024 14:05:07: Device I/O error.")
      << "the first reason and its time stay";
}

TEST_F(SampleWriter, TellsOfAWorksheetThatCannotBeWritten) {
  bench.Run("EXCEL");
  FailNextWrite(61);
  bench.Fill(0);
  bench.WriteRing(0);
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
  EXPECT_TRUE(bench.Main.CWButton3.Value) << "the recording runs on";
  EXPECT_EQ(NotStored(), "stream 1: not stored since 09.03.2024 14:05:07: Disk full.");
  EXPECT_EQ(bench.Main.OnDisk[0].Caption, "");
}

TEST_F(SampleWriter, TellsOfEachStreamByItself) {
  bench.TakeBoth();
  bench.Run("TXT");
  bench.Disk.FailingOpen = 2;
  bench.Disk.Number = 70;
  bench.WriteRing(0);
  bench.WriteRing(1);
  EXPECT_EQ(NotStored(), "stream 2: not stored since 09.03.2024 14:05:07: Permission denied.");
  bench.Files.Folders.clear();
  bench.WriteRing(0);
  EXPECT_EQ(NotStored(),
            "stream 1: not stored since 09.03.2024 14:05:07: Path not found. "
            "stream 2: not stored since 09.03.2024 14:05:07: Permission denied.");
}

TEST_F(SampleWriter, TellsOfAWorksheetThatCannotBeBegun) {
  bench.Run("EXCEL");
  bench.Files.Folders.clear();
  bench.WriteRing(0);
  EXPECT_EQ(NotStored(), "stream 1: not stored since 09.03.2024 14:05:07: Path not found.");
}

TEST_F(SampleWriter, ForgetsTheTroubleAtTheNextStart) {
  bench.Run("TXT");
  bench.Files.Folders.clear();
  bench.WriteRing(0);
  bench.Stop();
  EXPECT_TRUE(bench.Main.NotStored.Visible) << "until then it stays";
  bench.Run("TXT");
  EXPECT_FALSE(bench.Main.NotStored.Visible);
  EXPECT_EQ(NotStored(), "");
}

TEST_F(SampleWriter, TellsWhatIsOnDisk) {
  bench.TakeBoth();
  bench.Fill(0);
  bench.Run("TXT");
  bench.WriteRing(0);
  const auto kilobytes = [&](const std::string& file) {
    return bench.Numbers.Format(static_cast<double>(bench.Content(file).size()) / 1000, "#,##0");
  };
  EXPECT_EQ(bench.Main.OnDisk[0].Caption,
            "stream 1: 1 whole ring, " + kilobytes("1_" + name) + " kB on disk");
  EXPECT_EQ(bench.Main.OnDisk[1].Caption, "");
  bench.WriteRing(0);
  bench.WriteRing(1);
  EXPECT_EQ(bench.Main.OnDisk[0].Caption,
            "stream 1: 2 whole rings, " + kilobytes("1_" + name) + " kB on disk");
  EXPECT_EQ(bench.Main.OnDisk[1].Caption,
            "stream 2: 1 whole ring, " + kilobytes("2_" + name) + " kB on disk");
  bench.Stop();
  bench.Run("TXT");
  EXPECT_EQ(bench.Main.OnDisk[0].Caption, "");
  EXPECT_EQ(bench.Main.OnDisk[1].Caption, "");
}

TEST_F(SampleWriter, DoesNotCountTheRingOfARowLimit) {
  bench.Run("EXCEL");
  for (int ring = 0; ring < 9; ++ring) bench.WriteRing(0);
  EXPECT_TRUE(bench.Main.OnDisk[0].Caption.Get().starts_with("stream 1: 8 whole rings, "));
}

/// A short recording in a format, on a disk that fills up at one of its writes.
class EachWrite : public SampleWriter, public testing::WithParamInterface<const char*> {
 protected:
  /// RUN, three rings of the first stream and two of the second, STOP.
  static void Record(RecorderBench& bench) {
    bench.TakeBoth();
    bench.Run(GetParam());
    bench.Fill(0);
    bench.Fill(1);
    for (int ring = 1; ring <= 3 && bench.Main.CWButton3.Value; ++ring) {
      bench.WriteRing(0, 9 * ring);
      if (ring < 3 && bench.Main.CWButton3.Value) bench.WriteRing(1, 9 * ring);
    }
    bench.Stop();
  }
};

TEST_P(EachWrite, LeavesWholeRingsInFrontOfTheFailure) {
  RecorderBench sound;
  Record(sound);
  const bool worksheet = std::string(GetParam()) == "EXCEL";
  ASSERT_THAT(sound.Dialogs.Shown, IsEmpty());
  for (int n = 1; n <= sound.Disk.Writes; ++n) {
    SCOPED_TRACE(n);
    RecorderBench failing;
    failing.Disk.FailingWrite = n;
    Record(failing);
    EXPECT_FALSE(failing.Main.CWButton3.Value);
    EXPECT_FALSE(failing.Writing.Open.IsOpen(packetroutines::TextFile));
    const bool lastPiece = std::string(GetParam()) == "COMTRADE" && n == sound.Disk.Writes;
    if (worksheet) {
      EXPECT_THAT(failing.Dialogs.Shown, IsEmpty());
    } else if (lastPiece) {
      ASSERT_THAT(failing.Dialogs.Shown, SizeIs(1));
      EXPECT_EQ(failing.Dialogs.Shown[0].Title, "Information");
    } else {
      ASSERT_THAT(failing.Dialogs.Shown, SizeIs(1));
      EXPECT_EQ(failing.Dialogs.Shown[0], DiskFull);
    }
    // A worksheet goes on behind the gap; every other file is the beginning of the whole one.
    for (const std::string& file : failing.Names()) {
      if (worksheet || file.ends_with(".cfg")) continue;
      EXPECT_TRUE(sound.Content(file).starts_with(failing.Content(file))) << file;
    }
  }
}

TEST_P(EachWrite, LeavesARecorderThatRecordsAgain) {
  RecorderBench sound;
  Record(sound);
  for (int n = 1; n <= sound.Disk.Writes; ++n) {
    SCOPED_TRACE(n);
    RecorderBench failing;
    failing.Disk.FailingWrite = n;
    Record(failing);
    failing.Files.Stored.clear();
    Record(failing);
    EXPECT_EQ(failing.Main.NotStored.Caption, sound.Main.NotStored.Caption);
    EXPECT_THAT(failing.Names(), testing::ContainerEq(sound.Names()));
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, EachWrite, testing::Values("TXT", "EXCEL", "COMTRADE"));

}  // namespace
}  // namespace recorder_tests
