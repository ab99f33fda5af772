// Worksheets that a disk, a change of the tab or an earlier recording leaves in trouble.

#include "recorder/writing/worksheet_file.h"

namespace recorder_tests {
namespace {

TEST_F(WorksheetFile, ThatIsNotFinishedIsTold) {
  bench.Run("EXCEL");
  bench.WriteRing(0);
  bench.Disk.FailingWrite = bench.Disk.Writes + 1;
  bench.Stop();
  EXPECT_EQ(bench.Main.NotStored.Caption,
            "The worksheet of stream 1 could not be finished: Disk full.");
  EXPECT_THAT(bench.Dialogs.Shown, testing::IsEmpty());
  for (const auto& format : bench.Main.Option2) EXPECT_TRUE(format.Enabled);
  bench.Run("TXT");
  EXPECT_TRUE(bench.Content(name).ends_with(std::string("\x0A\0\0\0", 4))) << "the next RUN tries";
  EXPECT_EQ(bench.Main.NotStored.Caption, "");
}

TEST_F(WorksheetFile, ThatIsNotFinishedAtItsLastRowIsToldOnce) {
  bench.Run("EXCEL");
  Rings(8);
  bench.Events.AtPump(3, [this] { bench.Disk.FailingWrite = bench.Disk.Writes + 1; });
  bench.Disk.AlsoBehind = true;
  Rings(1);
  EXPECT_EQ(bench.Main.NotStored.Caption,
            "stream 1: not stored since 09.03.2024 14:05:07: Disk full. "
            "The worksheet of stream 1 could not be finished: Disk full.");
}

TEST_F(WorksheetFile, TellsThatRingsAreStoredAgain) {
  bench.Run("EXCEL");
  bench.WriteRing(0);
  bench.Disk.FailingWrite = bench.Disk.Writes + 1;
  bench.Disk.FailsWhole = true;
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Main.NotStored.Caption.Get().starts_with("stream 1: not stored since"));
  bench.WriteRing(0);
  EXPECT_EQ(bench.Main.NotStored.Caption,
            "stream 1: stored again since 09.03.2024 14:05:07; 1 ring lost: Disk full.");
  bench.Stop();
  EXPECT_TRUE(Read(name).Whole);
  EXPECT_EQ(Read(name).Cells, std::size_t{9} * 8000);
}

TEST_F(WorksheetFile, IsNotStoredAgainBehindAPartOfARecord) {
  bench.Run("EXCEL");
  bench.WriteRing(0);
  bench.Disk.FailingWrite = bench.Disk.Writes + 1;
  bench.WriteRing(0);
  bench.WriteRing(0);
  EXPECT_EQ(bench.Main.NotStored.Caption,
            "stream 1: not stored since 09.03.2024 14:05:07: Disk full.");
}

TEST_F(WorksheetFile, WithoutItsFirstRecordIsNotStored) {
  bench.Disk.FailsWhole = true;
  bench.Disk.FailingWrite = 1;
  bench.Run("EXCEL");
  Rings(2);
  EXPECT_TRUE(bench.Main.NotStored.Caption.Get().starts_with("stream 1: not stored since"));
}

TEST_F(WorksheetFile, ThatTheNextRunCannotFinishIsTold) {
  bench.Run("EXCEL");
  bench.WriteRing(0);
  LeaveTab();
  bench.Disk.FailingWrite = bench.Disk.Writes + 1;
  bench.Run("TXT");
  EXPECT_EQ(bench.Main.NotStored.Caption,
            "A worksheet of the recording before could not be finished: Disk full.");
  EXPECT_TRUE(bench.State.LookingForRecording);
}

TEST_F(WorksheetFile, ThatAChangeOfTheTabLeftOpenIsEndedByTheNextRun) {
  for (const char* format : {"TXT", "EXCEL", "COMTRADE"}) {
    RecorderBench other;
    other.TakeBoth();
    other.Run("EXCEL");
    other.WriteRing(0);
    other.WriteRing(1);
    LeaveTab(other);
    EXPECT_FALSE(ReadSheet(other.Content("1_" + name)).Codes.ends_with(" 10 "));
    other.Calendar.Present.Second = 8;
    other.Run(format);
    for (const char* prefix : {"1_", "2_"}) {
      const ReadSheet sheet(other.Content(prefix + name));
      EXPECT_TRUE(sheet.Codes.ends_with(" 3 10 ")) << format << prefix;
      EXPECT_TRUE(sheet.Whole);
    }
    EXPECT_EQ(other.Main.NotStored.Caption, "");
  }
}

TEST_F(WorksheetFile, HasItsEndBeforeALogClosesAllFiles) {
  ReadingBench other;
  other.Run("EXCEL");
  other.WriteRing(0);
  LeaveTab(other);
  other.Calendar.Present.Second = 8;
  other.Run("TXT");
  other.Frames(1);
  other.Fill(0);
  other.WriteRing(0);
  other.Stop();
  EXPECT_NE(other.Content("Errorlog SV record 09.03.2024 14-05-08.txt"), "missing");
  EXPECT_TRUE(ReadSheet(other.Content(name)).Codes.ends_with(" 3 10 "));
}

TEST_F(WorksheetFile, OfAnEarlierRunIsNoTroubleOfARunWithoutAFrame) {
  bench.Run("EXCEL");
  bench.Disk.FailingWrite = 1;
  bench.WriteRing(0);
  EXPECT_TRUE(bench.Main.NotStored.Visible);
  bench.Stop();
  bench.Calendar.Present.Second = 8;
  bench.Main.CWButton3.Value = true;
  EXPECT_EQ(bench.Main.NotStored.Caption, "");
  bench.Stop();
  EXPECT_EQ(bench.Main.NotStored.Caption, "No ring was stored, so there is no worksheet.");
}

}  // namespace
}  // namespace recorder_tests
