// What the file beside a recording tells of its streams, as the bus and the clock have them.

#include "recorder/events/events_scene.h"

namespace recorder_tests {
namespace {

using std::chrono_literals::operator""h;
using std::chrono_literals::operator""s;
using support::FrameBytes;
using support::SvFrame;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

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

TEST_F(RecordedEvents, BeginWithTheUnitsOfTheSecondStream) {
  bench.TakeBoth();
  Record();
  Come(Ring);
  bench.Stop();
  EXPECT_THAT(All().front(), HasSubstr(", stream 2 in A and kV, frequency 50 Hz\""));
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
  EXPECT_EQ(bench.Main.NotStored.Caption.Get(), WhereTotalsStand);
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

TEST_F(RecordedEvents, TakeNoStepOfAClockThatIsShorterThanATenthOfASecond) {
  Record();
  Come(1);
  bench.Core.Watch.TakeClockStep();
  bench.Clock.Began += 99'999us;
  EXPECT_EQ(bench.Core.Watch.TakeClockStep(), 0us);
  bench.Clock.Began -= 100'000us;
  EXPECT_EQ(bench.Core.Watch.TakeClockStep(), -100'000us);
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

TEST_F(RecordedEvents, CountWhatIsMissingAtTheEndByTheTimeThatPassedWhereTheClockIsSetMeanwhile) {
  for (const std::chrono::microseconds set : {-1h, 1h}) {
    Record();
    Come(Ring);
    bench.Clock.Advance(20s);
    bench.Clock.Began += set;
    bench.Stop();
    EXPECT_THAT(Line("samples missing"), HasSubstr("none came up to the end, by the time 80001"));
    bench.Files.Stored.clear();
  }
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

}  // namespace
}  // namespace recorder_tests
