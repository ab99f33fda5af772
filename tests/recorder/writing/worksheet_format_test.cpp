#include "recorder/writing/worksheet_file.h"

namespace recorder_tests {
namespace {

using testing::ElementsAre;

TEST_F(WorksheetFile, BeginsWithItsLayoutAndItsHeading) {
  bench.WriteRing(0);
  const std::string content = bench.Content(name);
  const std::string begin(
      "\x09\0\x04\0\x02\0\x0A\0"
      "\x2B\0\x02\0\0\0"
      "\x28\0\x08\0\0\0\0\0\0\0\xF8\x3F"
      "\x26\0\x08\0\0\0\0\0\0\0\xF8\x3F"
      "\x27\0\x08\0\0\0\0\0\0\0\xF8\x3F"
      "\x29\0\x08\0\0\0\0\0\0\0\xF8\x3F"
      "\x31\0\x0A\0\xC8\0\0\0\x05"
      "Arial"
      "\x31\0\x0A\0\xC8\0\x01\0\x05"
      "Arial"
      "\x31\0\x0A\0\xC8\0\x05\0\x05"
      "Arial"
      "\x31\0\x0C\0\xF0\0\x02\0\x07"
      "Courier"
      "\x24\0\x04\0\0\x04\0\x12"
      "\x04\0\x0C\0\0\0\0\0\0\x40\x01\x04"
      "Ramp"
      "\x04\0\x0A\0\0\0\x01\0\0\x40\x01\x02"
      "IA",
      8 + 6 + 48 + 3 * 14 + 16 + 8 + 16 + 14);
  EXPECT_EQ(content.substr(0, begin.size()), begin);
  EXPECT_THAT(ReadSheet(content).Texts,
              ElementsAre("Ramp", "IA", "IB", "IC", "IN", "UA", "UB", "UC", "UN"));
}

TEST_F(WorksheetFile, HasARowOfNineNumbersASample) {
  bench.Fill(0, 3990);
  bench.WriteRing(0);
  const ReadSheet sheet = Read(name);
  ASSERT_EQ(sheet.Numbers.size(), 36000U);
  for (int i = 0; i < 4000; ++i) {
    ASSERT_EQ(sheet.Numbers.at({i + 1, 0}), (3990 + i) % 4000);
    for (int k = 0; k < 8; ++k) {
      ASSERT_EQ(sheet.Numbers.at({i + 1, k + 1}), ValueAt(0, static_cast<std::size_t>(k), i));
    }
  }
  EXPECT_FALSE(sheet.Codes.ends_with(" 10 ")) << "it stays open between the rings";
}

TEST_F(WorksheetFile, HasItsNumbersInThePlainFontAlignedLeft) {
  Rings(2);
  EXPECT_THAT(Read(name).Looks, ElementsAre(std::string("\0\0\1", 3)));
}

TEST_F(WorksheetFile, HasItsHeadingInTheCodePageOfTheSystem) {
  bench.Settings.ChannelName[0] = "Strom Ä";
  bench.Settings.ChannelName[1] = "10 € Ω";
  bench.Settings.ChannelName[2] = std::string(256, 'x');
  bench.WriteRing(0);
  EXPECT_THAT(Read(name).Texts,
              ElementsAre("Ramp", "Strom \xC4", "10 \x80 ?", "IN", "UA", "UB", "UC", "UN"))
      << "a name that no cell holds is left out alone";
  EXPECT_FALSE(bench.Main.NotStored.Visible);
}

TEST_F(WorksheetFile, OfALaterRingGoesOnBelow) {
  Rings(2);
  EXPECT_EQ(Read(name).LastRow, 8000);
  EXPECT_EQ(Read(name).Texts.size(), 9U);
}

TEST_F(WorksheetFile, IsOneWriteARing) {
  Rings(3);
  EXPECT_EQ(bench.Disk.Writes, 1 + 3) << "the first record is one of its own";
  EXPECT_EQ(bench.Disk.Opens, 1);
}

TEST_F(WorksheetFile, EndsWithTheStop) {
  bench.Run("EXCEL");
  bench.Frames(4000);
  bench.Stop();
  const ReadSheet sheet = Read(name);
  EXPECT_TRUE(sheet.Codes.ends_with(" 3 10 "));
  EXPECT_TRUE(sheet.Whole);
  EXPECT_EQ(sheet.Numbers.size(), 36000U);
}

TEST_F(WorksheetFile, OfTheSecondStreamIsNotEndedByTheStop) {
  bench.TakeBoth();
  bench.Run("EXCEL");
  bench.Frames(1);
  bench.Frames(4000, "MU02");
  bench.Stop();
  EXPECT_FALSE(Read("2_" + name).Codes.ends_with(" 10 "));
}

TEST_F(WorksheetFile, HoldsNoRowOfTheFirstStreamAbove32767) {
  bench.Run("EXCEL");
  bench.Fill(0);
  Rings(9);
  const ReadSheet sheet = Read(name);
  EXPECT_EQ(sheet.LastRow, 32766);
  EXPECT_EQ(sheet.Numbers.size(), 9U * 32766U);
  EXPECT_EQ(sheet.Numbers.at({32766, 8}), ValueAt(0, 7, 765)) << "the 766th sample of its ring";
  EXPECT_TRUE(sheet.Codes.ends_with(" 3 10 "));
  EXPECT_TRUE(sheet.Whole);
}

TEST_F(WorksheetFile, OfTheFirstStreamEndsTheRecordingAtItsLastRow) {
  bench.Run("EXCEL");
  Rings(8);
  EXPECT_TRUE(bench.Main.CWButton3.Value);
  bench.Journal.clear();
  Rings(1);
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_FALSE(bench.State.LookingForRecording);
  EXPECT_FALSE(bench.State.CaptureRunning);
  EXPECT_THAT(bench.Journal,
              ElementsAre("stop", "pump", "clear", "pump", "pump", "stop", "pump", "clear", "pump",
                          "pump", "view", "stop", "pump", "clear", "pump"));
  EXPECT_TRUE(bench.Main.CWButton3.Visible);
}

/// The pumps of the end at the last row, in which frames come that waited behind a full ring.
class WorksheetBacklog : public WorksheetFile, public testing::WithParamInterface<int> {};

TEST_P(WorksheetBacklog, LeavesNoRowOfTheFirstStreamTwice) {
  bench.Run("EXCEL");
  bench.Fill(0);
  Rings(8);
  bench.Events.AtPump(GetParam(), [this] { bench.Frames(4000); });
  bench.WriteRing(0);
  EXPECT_EQ(Read(name).Cells, 9U * 32766U);
}

TEST_P(WorksheetBacklog, LeavesNoRowOfTheSecondStreamTwice) {
  bench.TakeBoth();
  bench.Run("EXCEL");
  for (int ring = 1; ring <= 16; ++ring) bench.WriteRing(1, 9 * ring);
  bench.Events.AtPump(GetParam(), [this] {
    bench.Frames(1);
    bench.Frames(4000, "MU02");
  });
  bench.WriteRing(1, 9 * 17);
  EXPECT_EQ(Read("2_" + name).Cells, std::size_t{9} * (16 * 4000 + 1534));
}

INSTANTIATE_TEST_SUITE_P(Pumps, WorksheetBacklog, testing::Values(1, 3));

TEST_F(WorksheetFile, OfTheSecondStreamTakesItsRowsFromTheFirst) {
  bench.TakeBoth();
  bench.Fill(1);
  bench.WriteRing(0);
  bench.WriteRing(1);
  const ReadSheet sheet = Read("2_" + name);
  EXPECT_EQ(sheet.Numbers.begin()->first.first, 4001) << "row 4002, counted from 1";
  EXPECT_EQ(sheet.LastRow, 8000);
  EXPECT_EQ(sheet.Numbers.at({4001, 1}), ValueAt(1, 0, 0));
}

TEST_F(WorksheetFile, OfTheSecondStreamAloneBeginsAtTheRowThatWrapsInAFreshRun) {
  bench.Fill(1, 5);
  bench.WriteRing(1);
  const ReadSheet sheet = Read("2_" + name);
  EXPECT_EQ(sheet.Numbers.at({65535, 0}), 5);
  EXPECT_EQ(sheet.Numbers.at({0, 0}), 6);
  EXPECT_EQ(sheet.Numbers.size(), 36000U);
}

TEST_F(WorksheetFile, OfTheSecondStreamEndsByItsOwnCounter) {
  bench.TakeBoth();
  bench.Run("EXCEL");
  for (int ring = 1; ring <= 16; ++ring) bench.WriteRing(1, 9 * ring);
  EXPECT_TRUE(bench.Main.CWButton3.Value);
  bench.WriteRing(1, 9 * 17);
  EXPECT_FALSE(bench.Main.CWButton3.Value);
  const std::string content = bench.Content("2_" + name);
  const ReadSheet sheet(content);
  EXPECT_TRUE(sheet.Codes.ends_with(" 3 10 "));
  const std::size_t heading = bench.Content("2_" + name).find("Ramp") - 12;
  const std::size_t cells = content.size() - heading - 4 - (16 + 8 * 14);
  EXPECT_EQ(cells / 19, std::size_t{9} * (16 * 4000 + 1534));
}

TEST_F(WorksheetFile, LeavesOutTheOneRowThatHasNoNumber) {
  bench.TakeBoth();
  Rings(8);
  bench.WriteRing(1);
  const ReadSheet sheet = Read("2_" + name);
  EXPECT_EQ(sheet.Numbers.size(), 36000U - 9U);
  EXPECT_EQ(sheet.Numbers.count({32766, 0}), 1U);
  EXPECT_EQ(sheet.Numbers.count({32767, 0}), 0U);
  EXPECT_EQ(sheet.Numbers.count({32768, 0}), 1U);
  EXPECT_FALSE(bench.Main.NotStored.Visible) << "which is no trouble of the disk";
}

TEST_F(WorksheetFile, IsMadeAnewByTheNextRecordingInItsFormat) {
  bench.Run("EXCEL");
  bench.WriteRing(0);
  bench.Stop();
  bench.Calendar.Present.Second = 8;
  bench.Run("EXCEL");
  bench.WriteRing(0);
  const ReadSheet second = Read("SV record 09.03.2024 14-05-08.xls");
  EXPECT_EQ(second.Texts.size(), 9U);
  EXPECT_EQ(second.LastRow, 4000);
}

TEST_F(WorksheetFile, GoesOnBehindARecordingInAnotherFormat) {
  bench.Writing.Worksheet.ExcelStarted = {true, true};
  bench.Run("TXT");
  EXPECT_THAT(bench.Writing.Worksheet.ExcelStarted, ElementsAre(true, true));
  bench.Stop();
  bench.Run("EXCEL");
  EXPECT_THAT(bench.Writing.Worksheet.ExcelStarted, ElementsAre(false, false));
}

TEST_F(WorksheetFile, ReadsTheSameInEveryLocale) {
  bench.Fill(0);
  bench.WriteRing(0);
  const std::string plain = bench.Content(name);
  RecorderBench other;
  other.Numbers = platform::NumberText(platform::NumberLocale{',', '.'});
  other.Settings.FileFormat = "EXCEL";
  other.State.RecordFileName = name;
  other.Fill(0);
  other.WriteRing(0);
  EXPECT_EQ(other.Content(name), plain);
}

}  // namespace
}  // namespace recorder_tests
