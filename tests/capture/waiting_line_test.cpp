#include "capture/waiting_line_scene.h"

namespace packetroutines {
namespace {

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
  StartValuesWith(PlainFrame(0, "MU02"));
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
  StartRecording(PlainFrame(0));
  bench.Elapse(seconds(2));
  ASSERT_NE(Line(forms::quiet_line::Recorder), "");
  Frames(400, PlainFrame(0));
  EXPECT_EQ(Line(forms::quiet_line::Recorder), "");
}

TEST_F(WaitingLineScene, TakesAFullRingForShownWhereNoBlockIsCounted) {
  bench.Present.BaseSamples = RecordRings::Cells;
  bench.Block.Rebuild(RecordRings::Cells);
  StartRecording(PlainFrame(0));
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
      EXPECT_EQ(!Line(view).empty(), view == run.View) << run.Mode << " " << view;
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
  StartRecording(PlainFrame(0));
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
