#include <bit>
#include <cstring>
#include <map>
#include <set>

#include "recorder_bench.h"

namespace recorder_tests {
namespace {

using testing::ElementsAre;

/// A worksheet as a reader of its records sees it, written from the table of records.
struct ReadSheet {
  explicit ReadSheet(const std::string& bytes) {
    std::size_t at = 0;
    while (at + 4 <= bytes.size()) {
      const auto word = [&](std::size_t place) {
        return static_cast<unsigned char>(bytes[place]) +
               256 * static_cast<unsigned char>(bytes[place + 1]);
      };
      const int code = word(at);
      const auto length = static_cast<std::size_t>(word(at + 2));
      if (at + 4 + length > bytes.size()) return;
      if (code == 3) ++Cells;
      Codes += std::to_string(code) + " ";
      const std::string data = bytes.substr(at + 4, length);
      if (code == 3) {
        double value = 0;
        std::memcpy(&value, data.data() + 7, sizeof value);
        Numbers[{word(at + 4), word(at + 6)}] = value;
        Looks.insert(data.substr(4, 3));
        LastRow = word(at + 4);
      }
      if (code == 4) Texts.push_back(data.substr(8));
      at += 4 + length;
    }
    Whole = at == bytes.size();
  }

  std::string Codes;
  /// By 0-based row and column, as they stand in the file.
  std::map<std::pair<int, int>, double> Numbers;
  /// Records of a number, also of those that stand in one place.
  std::size_t Cells = 0;
  std::vector<std::string> Texts;
  /// The attribute bytes that cells with numbers have.
  std::set<std::string> Looks;
  int LastRow = -1;
  /// The last record is complete.
  bool Whole = false;
};

class WorksheetFile : public testing::Test {
 protected:
  WorksheetFile() {
    bench.Settings.FileFormat = "EXCEL";
    bench.State.RecordFileName = name;
  }
  ReadSheet Read(const std::string& file) const { return ReadSheet(bench.Content(file)); }
  /// Writes `count` rings of the first stream.
  void Rings(int count) {
    for (int ring = 0; ring < count; ++ring) bench.WriteRing(0, 9 * (ring + 1));
  }

  /// Another tab is entered and the recorder's again.
  static void LeaveTab(RecorderBench& left) {
    left.Acquisition.StopCapture();
    ++left.State.TabChanges;
    packetroutines::ClearModes(left.State);
    left.State.RecorderBusy = true;
    left.Main.CWButton3.Value = false;
    left.State.RecorderBusy = false;
  }
  void LeaveTab() { LeaveTab(bench); }

  RecorderBench bench;
  const std::string name = Started + ".xls";
};

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
  EXPECT_EQ(Read("2_" + name).Cells, 9U * (16 * 4000 + 1534));
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
  EXPECT_EQ(cells / 19, 9U * (16 * 4000 + 1534));
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
  EXPECT_EQ(Read(name).Cells, 9U * 8000U);
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
  other.Run("TXT");
  other.Frames(1);
  other.Fill(0);
  other.WriteRing(0);
  other.Stop();
  EXPECT_NE(other.Content("Errorlog " + Started + ".txt"), "missing");
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

TEST_F(WorksheetFile, GoesOnBehindARecordingInAnotherFormat) {
  bench.Sheets.ExcelStarted = {true, true};
  bench.Run("TXT");
  EXPECT_THAT(bench.Sheets.ExcelStarted, ElementsAre(true, true));
  bench.Stop();
  bench.Run("EXCEL");
  EXPECT_THAT(bench.Sheets.ExcelStarted, ElementsAre(false, false));
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
