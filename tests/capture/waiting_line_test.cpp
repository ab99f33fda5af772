#include "capture/waiting_line.h"

#include <gtest/gtest.h>

#include "config/setup_view.h"
#include "support/capture_bench.h"

namespace packetroutines {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using support::FrameBytes;
using support::PlainFrame;
using support::SvFrame;
using testing::Invoke;

/// A run of the Values view that is looked at, on a bus in the hands of the test.
class WaitingLineScene : public testing::Test {
 protected:
  WaitingLineScene() {
    bench.Acquisition.Stopped = [this] { waiting_.CaptureStopped(); };
    ON_CALL(bench.Views, BlockShown).WillByDefault(Invoke([this] { waiting_.BlockShown(); }));
  }

  void Start(platform::CWButton& button, const char* mode) {
    button.Value = true;
    bench.Run(mode);
  }
  void StartValues() { Start(bench.Main.CWButton4, "LookingForValues"); }
  /// Values, with the frame length already known.
  void StartValuesWith(const FrameBytes& first) {
    StartValues();
    bench.Receive(first);
  }
  void Restart() { bench.Acquisition.StartCapture("LookingForValues"); }
  void Frames(int count, const FrameBytes& frame) {
    bench.Receive(count, [&](int) { return frame; });
  }
  std::string Line(std::size_t view = forms::quiet_line::Values) {
    const platform::QuietLine& line = bench.Main.QuietLine[view];
    EXPECT_EQ(line.Visible, !line.Caption.Get().empty());
    return line.Caption;
  }

  support::CaptureBench bench;
  AcquisitionState& state = bench.State;

 private:
  WaitingLine waiting_{state,        bench.Settings,       bench.Present,
                       bench.Main,   bench.Main.Buttons(), bench.Timers,
                       bench.Numbers};
};

TEST_F(WaitingLineScene, SaysThatNoFrameComes) {
  StartValues();
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(), "Waiting for \"MU01\": no frame came in.");
}

TEST_F(WaitingLineScene, IsSilentForTwoSeconds) {
  StartValues();
  bench.Elapse(milliseconds(1999));
  EXPECT_EQ(Line(), "");
}

TEST_F(WaitingLineScene, SaysThatOnlyOtherStationsSend) {
  StartValuesWith(PlainFrame(0, "MU02"));
  Frames(8011, PlainFrame(0, "MU02"));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(), "Waiting for \"MU01\": 8012 frames came in, none held this ID.");
}

TEST_F(WaitingLineScene, CountsTheFrameThatSetsTheLengthAndSpeaksOfOne) {
  StartValuesWith(PlainFrame(0));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(), "Waiting for \"MU01\": 1 frame came in, none held this ID.");
}

TEST_F(WaitingLineScene, TellsHowManyFramesHeldTheIdAndWhatABlockTakes) {
  StartValuesWith(PlainFrame(0));
  Frames(12, PlainFrame(0));
  Frames(5, PlainFrame(0, "MU02"));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(), "Waiting for \"MU01\": 18 frames came in, 12 held this ID, a block takes 400.");
}

TEST_F(WaitingLineScene, NamesTheFramesThatAreLongerThanExpected) {
  StartValuesWith(PlainFrame(0, "MU02"));
  Frames(1, SvFrame("MU01").Trailer({0}).Bytes());
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 2 frames came in, none held this ID, "
            "1 was longer than expected.");
  Frames(11, SvFrame("MU01").Trailer({0}).Bytes());
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 13 frames came in, none held this ID, "
            "12 were longer than expected.");
}

TEST_F(WaitingLineScene, NamesSamplesThatEndTheFrameOfAFourChannelStream) {
  const FrameBytes four = SvFrame("MU01").Channels(4).AllRaw(1000).Bytes();
  StartValuesWith(four);
  Frames(4000, four);
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 401 frames came in, 400 held this ID, "
            "their samples could not be located.");
}

TEST_F(WaitingLineScene, CountsTheSamplesThatCouldNotBeLocatedInOneBurstOfTwo) {
  StartValuesWith(PlainFrame(0));
  Frames(3, PlainFrame(0));
  Restart();
  Frames(7, SvFrame("MU01").Channels(2).AllRaw(1000).Bytes());
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 11 frames came in, 10 held this ID, "
            "the samples of 7 could not be located.");
}

TEST_F(WaitingLineScene, LooksAtTheScanOfThisBurstAlone) {
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

TEST_F(WaitingLineScene, SaysThatTheSignalIsSilent) {
  StartValuesWith(PlainFrame(0));
  for (int burst = 0; burst < 4; ++burst) {
    Frames(400, PlainFrame(0, "MU01", 0));
    bench.Elapse(milliseconds(600));
    Restart();
  }
  EXPECT_EQ(Line(),
            "Waiting for \"MU01\": 1601 frames came in, 1600 held this ID, the signal is silent.");
}

TEST_F(WaitingLineScene, AsksForAStationWhereNoneIsChosen) {
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

TEST_F(WaitingLineScene, GoesWithTheNextBlockAndCountsAnew) {
  StartValuesWith(PlainFrame(0, "MU02"));
  bench.Elapse(seconds(3));
  ASSERT_NE(Line(), "");
  Frames(400, PlainFrame(0));
  EXPECT_EQ(Line(), "");
  Restart();
  bench.Elapse(milliseconds(1900));
  EXPECT_EQ(Line(), "");
  Frames(2, PlainFrame(0, "MU02"));
  bench.Elapse(milliseconds(600));
  EXPECT_EQ(Line(), "Waiting for \"MU01\": 2 frames came in, none held this ID.");
}

TEST_F(WaitingLineScene, StaysThroughARestartBetweenBurstsWithItsCounts) {
  StartValuesWith(PlainFrame(0, "MU02"));
  bench.Elapse(seconds(2));
  Restart();
  Frames(1, PlainFrame(0, "MU02"));
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "Waiting for \"MU01\": 2 frames came in, none held this ID.");
}

TEST_F(WaitingLineScene, DoesNotCountThePauseThatTheUserChose) {
  StartValuesWith(PlainFrame(0));
  Frames(400, PlainFrame(0));
  bench.Elapse(seconds(30));
  EXPECT_EQ(Line(), "");
  Restart();
  bench.Elapse(milliseconds(1400));
  EXPECT_EQ(Line(), "");
  bench.Elapse(milliseconds(600));
  EXPECT_NE(Line(), "");
}

TEST_F(WaitingLineScene, TakesARealTimeBlockForShown) {
  state.RealTimeMode = true;
  StartValuesWith(PlainFrame(0));
  bench.Elapse(seconds(2));
  ASSERT_NE(Line(), "");
  Frames(399, PlainFrame(0));
  EXPECT_NE(Line(), "");
  Frames(1, PlainFrame(0));
  EXPECT_EQ(Line(), "");
}

TEST_F(WaitingLineScene, TakesTheProgressOfARecordingForShown) {
  Start(bench.Main.CWButton3, "LookingForRecording");
  bench.Receive(PlainFrame(0));
  bench.Elapse(seconds(2));
  ASSERT_NE(Line(forms::quiet_line::Recorder), "");
  Frames(400, PlainFrame(0));
  EXPECT_EQ(Line(forms::quiet_line::Recorder), "");
}

TEST_F(WaitingLineScene, TakesAFullRingForShownWhereNoBlockIsCounted) {
  bench.Present.BaseSamples = RecordRings::Cells;
  bench.Block.Rebuild(RecordRings::Cells);
  Start(bench.Main.CWButton3, "LookingForRecording");
  bench.Receive(PlainFrame(0));
  bench.Elapse(seconds(2));
  ASSERT_NE(Line(forms::quiet_line::Recorder), "");
  Frames(RecordRings::Cells, PlainFrame(0));
  EXPECT_EQ(Line(forms::quiet_line::Recorder), "");
}

TEST_F(WaitingLineScene, StandsOnTheViewThatRuns) {
  const struct {
    platform::CWButton& Button;
    const char* Mode;
    bool AcquisitionState::*Flag;
    std::size_t View;
  } runs[] = {
      {bench.Main.CWButton4, "LookingForValues", &AcquisitionState::LookingForValues, 0},
      {bench.Main.CWButton2, "LookingForPhases", &AcquisitionState::LookingForPhases, 1},
      {bench.Main.CWButton1, "LookingForScope", &AcquisitionState::LookingForScope, 2},
      {bench.Main.CWButton3, "LookingForRecording", &AcquisitionState::LookingForRecording, 3}};
  for (const auto& run : runs) {
    Start(run.Button, run.Mode);
    bench.Elapse(seconds(2));
    for (std::size_t view = 0; view < bench.Main.QuietLine.size(); ++view) {
      EXPECT_EQ(Line(view) != "", view == run.View) << run.Mode << " " << view;
    }
    run.Button.Value = false;
    state.*run.Flag = false;
    bench.Acquisition.StopCapture();
    EXPECT_EQ(Line(run.View), "") << run.Mode;
  }
}

TEST_F(WaitingLineScene, GoesWhileAViewIsLeft) {
  StartValues();
  bench.Elapse(seconds(2));
  ++state.Leaving;
  bench.Acquisition.StopCapture();
  EXPECT_EQ(Line(), "");
}

TEST_F(WaitingLineScene, GoesWhereTheModeFallsWithoutAStop) {
  StartValues();
  bench.Elapse(seconds(2));
  state.LookingForValues = false;
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "");
}

TEST_F(WaitingLineScene, KeepsNoTimerRunningBehindARun) {
  StartValues();
  bench.Main.CWButton4.Value = false;
  bench.Acquisition.StopCapture();
  bench.Main.Timer1.Enabled = false;
  EXPECT_FALSE(bench.Timers.NextDue());
}

TEST_F(WaitingLineScene, CountsAnewForAnotherStation) {
  StartValuesWith(PlainFrame(0));
  Frames(12, PlainFrame(0));
  bench.Elapse(seconds(2));
  bench.Settings.FilterContent[0] = "MU02";
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "");
  Frames(3, PlainFrame(0));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Line(), "Waiting for \"MU02\": 3 frames came in, none held this ID.");
}

TEST_F(WaitingLineScene, LeavesALineAloneThatAnotherHasWritten) {
  platform::QuietLine& line = bench.Main.QuietLine[forms::quiet_line::Recorder];
  Start(bench.Main.CWButton3, "LookingForRecording");
  bench.Receive(PlainFrame(0));
  line.Say("The disk is full.");
  bench.Elapse(seconds(3));
  EXPECT_EQ(line.Caption, "The disk is full.");
  Frames(400, PlainFrame(0));
  EXPECT_EQ(line.Caption, "The disk is full.");
  line.Say("");
  bench.Elapse(seconds(3));
  EXPECT_EQ(line.Caption, "Waiting for \"MU01\": no frame came in.");
}

}  // namespace
}  // namespace packetroutines
