// What the file beside a recording tells of its files and of its end.

#include "recorder/events/events_scene.h"

namespace recorder_tests {
namespace {

using std::chrono_literals::operator""s;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

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

TEST_F(RecordedEvents, TellOfASecondStreamThatNeverCame) {
  bench.TakeBoth();
  Record();
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(All(), testing::Contains(HasSubstr(";2;0;total;0;never came")));
}

TEST_F(RecordedEvents, HaveAnEndWhereAnInterfaceWentBeforeAnythingCame) {
  Record();
  bench.Capture.AdapterPresence = platform::Presence::Gone;
  bench.Elapse(1s);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre(";;interface gone;;"));
  EXPECT_THAT(All().back(), HasSubstr(";end;"));
}

TEST_F(RecordedEvents, TellOfAnInterfaceThatIsSwitchedOff) {
  Record();
  bench.Capture.AdapterPresence = platform::Presence::SwitchedOff;
  bench.Elapse(1s);
  bench.Stop();
  EXPECT_THAT(Happened(), ElementsAre(";;interface switched off;;"));
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
