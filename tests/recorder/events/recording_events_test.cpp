// What is told in the file beside a recording, from what the bus, the disk and the clock did.

#include <chrono>
#include <string>
#include <vector>

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using std::chrono_literals::operator""h;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;
using support::FrameBytes;
using support::SvFrame;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

constexpr int Ring = 4000;

class RecordedEvents : public testing::Test {
 protected:
  void Record(const std::string& format = "TXT") {
    bench.Run(format);
    Pass(1);
  }
  /// So many frames of each sender come, at the pace of 4000 a second.
  void Come(int frames) {
    for (int i = 0; i < frames; ++i) {
      for (const char* id : senders) {
        SvFrame frame = SvFrame(id).Count(static_cast<std::uint16_t>(sent % 4000)).AllRaw(1000);
        bench.Receive(frame.Synch(synch).Bytes());
      }
      Pass(1);
    }
  }
  /// So many are sent and do not come.
  void Pass(int frames) {
    sent += frames;
    bench.Clock.Advance(frames * 250us);
  }
  void Meet(int frame) { bench.Receive(support::PlainFrame(frame % 4000)); }

  /// The lines of the file, but for the heading.
  std::vector<std::string> All() const {
    std::vector<std::string> lines = Lines(bench.Content(Name));
    EXPECT_EQ(lines.empty() ? "" : lines.front(), "time;stream;line;event;count;figures");
    if (!lines.empty()) lines.erase(lines.begin());
    return lines;
  }
  /// The same without the time, and without those that begin and end a file.
  std::vector<std::string> Happened() const {
    std::vector<std::string> events;
    for (const std::string& line : All()) {
      const auto is = [&](const char* what) { return line.find(what) != std::string::npos; };
      if (is(";start;") || is(";stream met;") || is(";total;") || is(";end;")) continue;
      events.push_back(line.substr(line.find(';') + 1));
    }
    return events;
  }
  std::string Line(const std::string& event) const {
    for (const std::string& line : All()) {
      if (line.find(";" + event + ";") != std::string::npos) return line;
    }
    return "none";
  }

  static inline const std::string Name = "Events " + Started + ".csv";
  RecorderBench bench;
  std::vector<const char*> senders{"MU01"};
  int sent = 0;
  std::uint8_t synch = 2;
};

TEST_F(RecordedEvents, BeginWithTheSettingsAndEndWithTheTotals) {
  bench.Settings.FilterString = "vlan 5";
  Record();
  EXPECT_EQ(bench.Content(Name), "missing");
  Come(Ring + 700);
  bench.Stop();
  const std::vector<std::string> lines = All();
  ASSERT_THAT(lines, SizeIs(4));
  EXPECT_THAT(lines[0], StartsWith("2024-03-09 14:05:07."));
  EXPECT_THAT(lines[0], HasSubstr(";;;start;;\"Vornik 2.3.5, format TXT, adapter "));
  EXPECT_THAT(lines[0], HasSubstr("capture filter \"\"vlan 5\"\", stream 1 \"\"MU01\"\""));
  EXPECT_THAT(lines[1],
              HasSubstr(";1;1;stream met;;\"from 02:00:00:00:00:07 to 01:0C:CD:04:00:01, AppID "
                        "0x4000, svID \"\"MU01\"\", ASDUs a frame 1, channels 8, confRev 1, "
                        "smpSynch 2\""));
  EXPECT_THAT(lines[2], HasSubstr(";1;4000;total;4000;samples stored 4000, received 4700, missing "
                                  "0, of these by counter 0, doubled 0, out of order 0, rings not "
                                  "stored 0"));
  EXPECT_THAT(lines[3], HasSubstr(";;;end;;STOP was pressed"));
}

TEST_F(RecordedEvents, AreThereForEachFormat) {
  for (const char* format : {"EXCEL", "COMTRADE"}) {
    Record(format);
    Come(10);
    Pass(3);
    Come(Ring);
    bench.Stop();
    EXPECT_THAT(All().front(), HasSubstr(std::string("format ") + format));
    EXPECT_THAT(Happened(),
                ElementsAre("1;11;samples missing;3;by counter 3, by time of arrival 3"));
    bench.Files.Stored.clear();
  }
}

TEST_F(RecordedEvents, TellOfMissingSamplesWithWholeSeconds) {
  Record();
  Come(Ring + 100);
  Pass(31'617);
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(
      Happened(),
      ElementsAre("1;4101;samples missing;31617;by counter 3617, by time of arrival 31617"));
  EXPECT_THAT(Line("total"), HasSubstr("missing 31617, of these by counter 3617"));
}

TEST_F(RecordedEvents, StandInTheFileBeforeTheNextRing) {
  Record();
  Come(100);
  Pass(5);
  Come(Ring - 101);
  EXPECT_EQ(bench.Content(Name), "missing");
  Come(1);
  EXPECT_THAT(Happened(), SizeIs(1));
  EXPECT_EQ(Line("end"), "none");
}

TEST_F(RecordedEvents, CountManyGapsOfARingTogether) {
  Record();
  for (int i = 0; i < 400; ++i) {
    Come(10);
    Pass(1);
  }
  bench.Stop();
  const std::vector<std::string> events = Happened();
  ASSERT_THAT(events, SizeIs(25));
  EXPECT_EQ(events.back(), "1;;samples missing;375;at 375 further places of this ring");
  EXPECT_THAT(Line("total"), HasSubstr("missing 399"));
}

TEST_F(RecordedEvents, TellOfDoubledAndSwappedFrames) {
  Record();
  Come(50);
  Meet(sent - 1);
  Meet(sent - 2);
  Come(10);
  // The next but one before the next.
  Meet(sent + 1);
  Meet(sent);
  Pass(2);
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre("1;51;samples doubled;2;", "1;64;samples out of order;1;"));
}

TEST_F(RecordedEvents, TellOfNothingMissingWhereManyFramesAreSwapped) {
  Record();
  for (int i = 0; i < 100; ++i) {
    Come(38);
    Meet(sent + 1);
    Meet(sent);
    Pass(2);
  }
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre("1;40;samples out of order;100;"));
}

TEST_F(RecordedEvents, TellOfBothStreamsAndWhereTheirTotalsStand) {
  bench.TakeBoth();
  Record();
  senders = {"MU01", "MU02"};
  Come(30);
  Pass(2);
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre("1;31;samples missing;2;by counter 2, by time of arrival 2",
                                      "2;31;samples missing;2;by counter 2, by time of arrival 2"));
  EXPECT_EQ(bench.Main.NotStored.Caption.Get(),
            "Two streams have no log; the totals of both stand in \"" + Name + "\".");
}

TEST_F(RecordedEvents, TellOfAChangedSynchronisation) {
  Record();
  Come(20);
  synch = 0;
  Come(10);
  synch = 1;
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre("1;21;synchronisation changed;2;smpSynch from 2 to 1"));
}

TEST_F(RecordedEvents, TellOfASenderThatBeganAnew) {
  Record();
  Come(500);
  sent = 3000;
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre("1;501;counter began anew;1;"));
}

TEST_F(RecordedEvents, TellOfWhatTheSystemDroppedAndWhatWasTooLong) {
  bench.Capture.Dropped = 7;
  Record();
  Come(20);
  bench.Capture.Dropped = 19;
  for (int i = 0; i < 3; ++i) {
    bench.Receive(SvFrame("MU01").Trailer(FrameBytes(40, 0)).Bytes());
  }
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(),
              ElementsAre(";;frames too long;3;not stored",
                          ";;frames dropped by the system;12;nobody took them in time"));
}

TEST_F(RecordedEvents, TellOfAClockThatWasSet) {
  Record();
  Come(20);
  bench.Clock.Began -= 1h;
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre(";;clock set;;by -3600.000 s"));
  EXPECT_THAT(Line("total"), HasSubstr("missing 0"));
}

TEST_F(RecordedEvents, TellOfRingsThatWereNotStored) {
  Record();
  Come(Ring);
  const auto stored = bench.Files.Stored;
  bench.LoseFolder();
  Come(2 * Ring);
  bench.BringFolderBack();
  bench.Files.Stored = stored;
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre("1;;file is gone;;rings in it 1",
                                      "1;4001;ring not stored;4000;File not found",
                                      "1;4001;ring not stored;4000;File not found",
                                      "1;4001;stored again;;rings lost until now 2"));
  EXPECT_THAT(Line("total"), HasSubstr("samples stored 8000"));
}

TEST_F(RecordedEvents, CountTheLinesOfARingThatWasNotFullBehindThoseOfTheFile) {
  Record();
  Come(Ring + 100);
  Pass(2);
  Come(100);
  bench.Stop();
  EXPECT_THAT(Happened(),
              ElementsAre("1;4101;samples missing;2;by counter 2, by time of arrival 2"));
}

TEST_F(RecordedEvents, TellOfAStreamThatDied) {
  Record();
  Come(Ring);
  bench.Clock.Advance(10s);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre("1;4001;stream silent;;",
                                      "1;;samples missing;40001;none came up to the end, by the "
                                      "time 40001"));
  EXPECT_THAT(Line("total"), HasSubstr("missing 40001, of these by counter 0"));
}

TEST_F(RecordedEvents, TellOfAStreamThatDiedWhileTheOtherLives) {
  bench.TakeBoth();
  Record();
  senders = {"MU01", "MU02"};
  Come(30);
  senders = {"MU01"};
  Come(2 * Ring);
  senders = {"MU01", "MU02"};
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(),
              ElementsAre("2;31;stream silent;;",
                          "2;31;samples missing;8000;by counter 0, by time of arrival 8000"));
}

TEST_F(RecordedEvents, TellOfNoSilenceWhereFramesWaitedForTheProgram) {
  bench.TakeBoth();
  Record();
  senders = {"MU01", "MU02"};
  Come(100);
  // The program stands still, and the driver has room for the first of what comes meanwhile.
  bench.Clock.Advance(12s);
  bench.Capture.Waited = 12s;
  Come(4 * Ring);
  bench.Capture.Waited = 0s;
  sent += 48'000;
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(),
              ElementsAre("1;16101;samples missing;48000;by counter 0, by time of arrival 48000",
                          "2;16101;samples missing;48000;by counter 0, by time of arrival 48000"));
}

TEST_F(RecordedEvents, TellOfASecondStreamThatNeverCame) {
  bench.TakeBoth();
  Record();
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(All(), testing::Contains(HasSubstr(";2;0;total;0;never came")));
}

TEST_F(RecordedEvents, MissNothingWhereFramesOfTheOldTimeStillWaitBehindAClockThatWasSet) {
  for (const std::chrono::microseconds set : {-1h, 1h}) {
    Record();
    Come(100);
    // The clock is set while these wait, and a ring is written before they come.
    const std::chrono::microseconds before = bench.Clock.Began;
    Come(Ring - 101);
    bench.Clock.Began += set;
    bench.Core.Watch.TakeClockStep();
    bench.Clock.Began = before;
    Come(50);
    bench.Clock.Began = before + set;
    Come(Ring);
    bench.Stop();
    EXPECT_THAT(Line("total"), HasSubstr("missing 0"));
    bench.Files.Stored.clear();
  }
}

TEST_F(RecordedEvents, HaveAnEndWhereAnInterfaceWentBeforeAnythingCame) {
  Record();
  bench.Capture.AdapterPresence = platform::Presence::Gone;
  bench.Elapse(1s);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre(";;interface gone;;"));
  EXPECT_THAT(All().back(), HasSubstr(";end;"));
}

TEST_F(RecordedEvents, KnowAFileThatWasMadeAnewBehindItsFirstRing) {
  Record();
  Come(Ring);
  bench.Files.Stored.erase(RecorderBench::Path(Started + ".txt"));
  Come(2 * Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre("1;;file is gone;;rings in it 1"));
  EXPECT_THAT(Line("total"), HasSubstr(";1;8000;total;12000;"));
}

TEST_F(RecordedEvents, GoByTheStructureThatComesWhereTheFirstFrameHadNone) {
  Record();
  // The length of the PDU does not fit.
  FrameBytes broken = support::PlainFrame(sent);
  broken[17] = 0xFF;
  bench.Receive(broken);
  Pass(1);
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(), testing::IsEmpty());
}

TEST_F(RecordedEvents, CountLinesAnewInANewFile) {
  Record();
  Come(2 * Ring);
  bench.Files.Stored.erase(RecorderBench::Path(Started + ".txt"));
  Come(Ring);
  Pass(1);
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(),
              ElementsAre("1;;file is gone;;rings in it 2",
                          "1;4001;samples missing;1;by counter 1, by time of arrival 1"));
}

TEST_F(RecordedEvents, GoOnBehindWhatAFullDiskHasTaken) {
  Record();
  Come(Ring);
  bench.Disk.Apart.clear();
  Come(10);
  Pass(2);
  // The writing of events, behind that of the ring.
  bench.Disk.FailingWrite = bench.Disk.Writes + 2;
  Come(2 * Ring);
  bench.Stop();
  EXPECT_THAT(Happened(),
              ElementsAre("1;4011;samples missing;2;by counter 2, by time of arrival 2"));
}

TEST_F(RecordedEvents, TellOfAnInterfaceThatWasGone) {
  Record();
  Come(20);
  bench.Capture.AdapterPresence = platform::Presence::Gone;
  bench.Elapse(2s);
  bench.Capture.AdapterPresence = platform::Presence::There;
  bench.Elapse(1s);
  sent += 12'000;
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(Happened(),
              ElementsAre(";;interface gone;;", ";;interface is there again;;",
                          "1;21;samples missing;12000;by counter 0, by time of arrival 12000"));
}

TEST_F(RecordedEvents, NameTheFullDiskThatEndedIt) {
  Record();
  Come(Ring);
  bench.Disk.FailingWrite = bench.Disk.Writes + 1;
  Come(Ring);
  EXPECT_THAT(Happened(), ElementsAre("1;4001;ring not stored;4000;Disk full"));
  EXPECT_THAT(Line("end"), HasSubstr("the disk is full"));
}

TEST_F(RecordedEvents, NameTheRowLimitThatEndedIt) {
  Record("EXCEL");
  Come(9 * Ring);
  EXPECT_THAT(Line("end"), HasSubstr("the worksheet is full"));
}

TEST_F(RecordedEvents, AreNotWrittenWhereNothingCame) {
  Record();
  bench.Stop();
  EXPECT_EQ(bench.Content(Name), "missing");
}

TEST_F(RecordedEvents, OfAShortRecordingAreWrittenAtItsEnd) {
  Record();
  Come(100);
  Pass(1);
  Come(100);
  bench.Stop();
  EXPECT_THAT(Happened(), SizeIs(1));
  EXPECT_THAT(Line("total"), HasSubstr(";1;0;total;0;samples stored 0, received 200, missing 1"));
}

TEST_F(RecordedEvents, OfTheNextRecordingAreItsOwn) {
  Record();
  Come(100);
  Pass(1);
  Come(100);
  bench.Stop();
  bench.Calendar.Present.Minute = 6;
  Record();
  Come(200);
  bench.Stop();
  EXPECT_THAT(bench.Content("Events SV record 09.03.2024 14-06-07.csv"),
              HasSubstr("received 200, missing 0"));
}

}  // namespace
}  // namespace recorder_tests
