// What keeps frames from being a block, in the words of the waiting line.

#include "capture/waiting_line_scene.h"

namespace packetroutines {
namespace {

using WaitingCause = WaitingLineScene;

/// A frame that is longer than a plain one by a byte.
FrameBytes LongerFrame(const std::string& id) {
  return SvFrame(id).AllRaw(1000).Trailer({0}).Bytes();
}

TEST_F(WaitingCause, ThatTheFramesOfTheStationAreLongerThanExpected) {
  StartValuesWith(PlainFrame(0, "MU02"));
  Frames(12, LongerFrame("MU01"));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 13 frames came in, those with this ID are longer than expected: "
            "RUN measures the length anew.");
}

TEST_F(WaitingCause, IsNotTheLengthOfOtherStations) {
  StartValuesWith(PlainFrame(0, "MU02"));
  Frames(1, LongerFrame("MU03"));
  bench.Elapse(seconds(2));
  EXPECT_EQ(
      Line(),
      "Waiting for \"MU01\": 2 frames came in, none held this ID, 1 was longer than expected.");
  Frames(11, LongerFrame("MU03"));
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 13 frames came in, none held this ID, "
            "12 were longer than expected.");
}

TEST_F(WaitingCause, IsFoundBehindManyLongerFramesOfOthers) {
  StartValuesWith(PlainFrame(0, "MU02"));
  Frames(4000, LongerFrame("MU03"));
  bench.Elapse(seconds(2));
  Frames(1, LongerFrame("MU01"));
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(
      Line(),
      "Waiting for \"MU01\": 4002 frames came in, those with this ID are longer than expected: "
      "RUN measures the length anew.");
}

TEST_F(WaitingCause, IsTheLengthOfSomeFramesBesideOthersOfTheSameText) {
  StartValuesWith(PlainFrame(0));
  Frames(12, PlainFrame(0));
  Frames(5, LongerFrame("MU01"));
  bench.Elapse(seconds(2));
  EXPECT_EQ(
      Line(),
      "Waiting for \"MU01\": 18 frames came in, 12 held this ID, 5 were longer than expected: "
      "RUN measures the length anew, a block takes 400.");
}

TEST_F(WaitingCause, ThatTheOnlyFrameOfTheStationWasSpentOnTheLength) {
  StartValuesWith(PlainFrame(0));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 1 frame came in, it held this ID and was spent on the length.");
  Frames(734, PlainFrame(0, "MU02"));
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(
      Line(),
      "Waiting for \"MU01\": 735 frames came in, only the first held this ID and was spent on "
      "the length.");
}

TEST_F(WaitingCause, ThatTheCounterIsReadBehindTheEndOfTheFrame) {
  const FrameBytes longer = SvFrame("MU01").FieldBeforeCount(FrameBytes(200)).AllRaw(1000).Bytes();
  StartValuesWith(longer);
  Frames(1, longer);
  // No counter is found in these, so the place of the longer ones stays in use.
  FrameBytes plain = PlainFrame(0);
  for (std::size_t at = 0; at + 1 < plain.size(); ++at) {
    if (plain[at] == 0x82 && plain[at + 1] == 2) plain[at + 1] = 3;
  }
  bench.Main.CWButton4.Value = false;
  bench.Acquisition.StopCapture();
  StartValuesWith(plain);
  Frames(400, plain);
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 401 frames came in, 400 held this ID, "
            "the values of all could not be read. \"MU01\" has no whole structure: "
            "a field has another size than the standard gives.");
}

TEST_F(WaitingCause, ThatABlockIsToHaveNoSamples) {
  bench.Present.BaseSamples = 0;
  StartValuesWith(PlainFrame(0));
  Frames(4000, PlainFrame(0));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 4001 frames came in, 4000 held this ID, "
            "no block ends with 0 'Samplings' under 'Setup'.");
}

TEST_F(WaitingCause, IsNotASilentSignalWhereOnlyTheLastRowsCouldNotBeRead) {
  bench.Block.Rebuild(100);
  StartValuesWith(PlainFrame(0));
  Frames(400, PlainFrame(0));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 401 frames came in, 400 held this ID, "
            "the values of 300 could not be read.");
}

TEST_F(WaitingCause, ThatTheOtherStationIsToBeChosen) {
  // As after a search that has left one station, with the second one chosen.
  bench.Settings.FilterContent = {"", "MU02"};
  StartValuesWith(PlainFrame(0, "MU02"));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(), "No station is chosen: 1 frame came in. Choose \"MU02\" on this page.");
}

TEST_F(WaitingCause, ThatTheOtherStationIsToBeChosenOnAViewForARecording) {
  bench.Settings.FilterContent = {"", "MU02"};
  StartRecording(PlainFrame(0, "MU02"));
  Frames(400, PlainFrame(0, "MU02"));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(forms::quiet_line::Recorder),
            "No station is chosen: 401 frames came in. Choose \"MU02\" on 'Values'.");
}

TEST_F(WaitingCause, NamesSamplesThatEndTheFrameOfAFourChannelStream) {
  const FrameBytes four = SvFrame("MU01").Channels(4).AllRaw(1000).Bytes();
  StartValuesWith(four);
  Frames(4000, four);
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 401 frames came in, 400 held this ID, "
            "their samples could not be located. The 4 channels of \"MU01\" stand at the frame's "
            "end, where the search does not go.");
}

TEST_F(WaitingCause, CountsTheSamplesThatCouldNotBeLocatedInOneBurstOfTwo) {
  StartValuesWith(PlainFrame(0));
  Frames(3, PlainFrame(0));
  Restart();
  Frames(7, SvFrame("MU01").Channels(2).AllRaw(1000).Bytes());
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 11 frames came in, 10 held this ID, "
            "the samples of 7 could not be located. \"MU01\" has 2 channels a sample; "
            "4, 8 or 12 are searched for.");
}

TEST_F(WaitingCause, LooksAtTheScanOfThisBurstAlone) {
  const FrameBytes two = SvFrame("MU01").Channels(2).AllRaw(1000).Bytes();
  StartValuesWith(PlainFrame(0));
  Frames(7, two);
  Restart();
  Frames(3, PlainFrame(0));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 11 frames came in, 10 held this ID, "
            "the samples of 7 could not be located.");
}

TEST_F(WaitingCause, SaysThatTheSignalIsSilent) {
  StartValuesWith(PlainFrame(0));
  for (int burst = 0; burst < 4; ++burst) {
    Frames(400, PlainFrame(0, "MU01", 0));
    bench.Elapse(milliseconds(600));
    Restart();
  }
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 1601 frames came in, 1600 held this ID, the signal is silent.");
}

TEST_F(WaitingCause, AsksForAStationWhereNoneIsChosen) {
  for (const char* none : {"", config::NoContent}) {
    bench.Settings.FilterContent[0] = none;
    StartValuesWith(PlainFrame(0));
    bench.Elapse(seconds(2));
    EXPECT_EQ(Line(),
              "No station is chosen: 1 frame came in. See 'Packet content filter' under 'Setup'.");
    bench.Main.CWButton4.Value = false;
    bench.Acquisition.StopCapture();
  }
}

}  // namespace
}  // namespace packetroutines
