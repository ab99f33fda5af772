// What the packet event does with a complete block of the first stream.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::FrameBytes;
using support::PlainFrame;
using support::SvFrame;
using testing::ElementsAre;
using testing::IsEmpty;

FrameBytes Silent(int i) {
  return PlainFrame(i, "MU01", 0);
}
FrameBytes Signal(int i) {
  return PlainFrame(i);
}

TEST(CompleteBlock, ComesWithTheFrameThatFillsIt) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");

  bench.Receive(399, Signal);
  EXPECT_THAT(bench.Journal, IsEmpty());
  EXPECT_EQ(bench.State.BlockCount, 0);

  bench.Receive(Signal(399));
  EXPECT_EQ(bench.State.BlockCount, 1);
  EXPECT_EQ(bench.Block.SampleCount(399), 399);
}

TEST(CompleteBlock, ComesAfterTheChosenNumberOfFrames) {
  CaptureBench bench;
  bench.Present.BaseSamples = 7;
  bench.Block.Rebuild(7);
  bench.RunWithLength("LookingForValues");

  bench.Receive(7, Signal);

  EXPECT_EQ(bench.State.BlockCount, 1);
  EXPECT_FALSE(bench.State.CaptureRunning);
}

struct ViewMode {
  const char* Mode;
  const char* Update;
  friend void PrintTo(const ViewMode& view, std::ostream* out) { *out << view.Mode; }
};

class LiveView : public testing::TestWithParam<ViewMode> {};

TEST_P(LiveView, IsUpdatedBehindTheStopAndRestartsSoon) {
  CaptureBench bench;
  bench.RunWithLength(GetParam().Mode);
  bench.Receive(399, Signal);
  bench.Watch(bench.Main.Timer2.Interval, "Timer2.Interval");
  bench.Watch(bench.Main.Timer2.Enabled, "Timer2.Enabled");

  bench.Receive(Signal(399));

  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", GetParam().Update,
                                         "pump", "Timer2.Interval 100", "Timer2.Enabled true"));
  EXPECT_FALSE(bench.State.CaptureRunning);
}

TEST_P(LiveView, KeepsItsLastPictureAtASilentBlockAndRestartsSoon) {
  CaptureBench bench;
  bench.RunWithLength(GetParam().Mode);

  bench.Receive(400, Silent);

  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", "pump"));
  EXPECT_TRUE(bench.Main.Timer2.Enabled);
  EXPECT_EQ(bench.Main.Timer2.Interval, 100);
}

INSTANTIATE_TEST_SUITE_P(CompleteBlock, LiveView,
                         testing::Values(ViewMode{"LookingForScope", "plot Auto"},
                                         ViewMode{"LookingForValues", "calculate values"},
                                         ViewMode{"LookingForPhases", "update phases"}));

TEST(CompleteBlock, IsPlottedAutomaticallyOnlyTheFirstTime) {
  CaptureBench bench;
  bench.RunWithLength("LookingForScope");
  bench.Receive(400, Signal);
  bench.Acquisition.StartCapture("LookingForScope");
  bench.Journal.clear();

  bench.Receive(400, Signal);

  EXPECT_THAT(bench.Journal, testing::Contains("plot Manuell"));
  EXPECT_THAT(bench.Journal, testing::Not(testing::Contains("plot Auto")));
}

TEST(CompleteBlock, CountsASilentFirstBlockForThePlot) {
  CaptureBench bench;
  bench.RunWithLength("LookingForScope");
  bench.Receive(400, Silent);
  bench.Acquisition.StartCapture("LookingForScope");

  bench.Receive(400, Signal);

  EXPECT_THAT(bench.Journal, testing::Contains("plot Manuell"));
}

TEST(CompleteBlock, ServesEveryViewWhoseFlagIsSet) {
  CaptureBench bench;
  bench.RunWithLength("LookingForPhases");
  bench.State.LookingForScope = true;
  bench.State.LookingForValues = true;

  bench.Receive(400, Signal);

  EXPECT_THAT(bench.Journal,
              ElementsAre("pump", "stop", "pump", "clear", "pump", "plot Auto", "pump",  //
                          "stop", "pump", "clear", "pump", "calculate values", "pump",   //
                          "stop", "pump", "clear", "pump", "update phases", "pump"));
}

TEST(CompleteBlock, IsJudgedByItsLastFrameOverAllRows) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");

  bench.Receive(400, [](int i) { return i == 10 ? Signal(i) : Silent(i); });

  EXPECT_THAT(bench.Journal, testing::Contains("calculate values"));
}

TEST(CompleteBlock, IsNotShownWhereItsLastRowFailed) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Receive(399, Signal);
  bench.Block.Rebuild(100);

  bench.Receive(Signal(399));

  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", "pump"));
  EXPECT_TRUE(bench.Main.Timer2.Enabled);
}

TEST(CompleteBlock, IsSilentWhereTheSamplesOfItsStreamWereNotFound) {
  CaptureBench bench;
  // Too few bytes follow the tag of the samples; what leads the frame is no signal.
  const auto frame = [](int i) {
    return SvFrame().Count(static_cast<std::uint16_t>(i)).Channels(4).AllRaw(50000).Bytes();
  };
  bench.RunWithLength("LookingForValues", frame(0));

  bench.Receive(400, frame);

  ASSERT_TRUE(bench.State.OffsetsKnown[0]);
  ASSERT_EQ(bench.State.ValueOffset[0], 0);
  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", "pump"));
  EXPECT_THAT(bench.Block.SignalValues.Cells(), testing::Each(0));
  EXPECT_TRUE(bench.Main.Timer2.Enabled);
}

TEST(CompleteBlock, CountsNothingWithoutAMode) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.State.LookingForValues = false;

  bench.Receive(1000, Signal);

  EXPECT_EQ(bench.State.BlockCount, 0);
  EXPECT_THAT(bench.Journal, IsEmpty());
}

TEST(CompleteBlock, LooksAtItsFrameForTheSecondStreamToo) {
  CaptureBench bench;
  bench.Settings.FilterContent = {"MU", "MU01"};
  bench.RunWithLength("LookingForValues");
  // The second stream's first frame restarts the block.
  bench.Receive(1 + 399, Signal);
  bench.State.OffsetsKnown[1] = false;

  bench.Receive(Signal(399));

  EXPECT_EQ(bench.State.BlockCount, 1);
  EXPECT_TRUE(bench.State.OffsetsKnown[1]);
}

// The real-time value.

TEST(RealTimeMode, KeepsCaptureOnAtTheEndOfABlock) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.State.RealTimeMode = true;

  bench.Receive(400, Signal);

  EXPECT_THAT(bench.Journal, ElementsAre("pump"));
  EXPECT_TRUE(bench.State.CaptureRunning);
  EXPECT_FALSE(bench.Main.Timer2.Enabled);
  EXPECT_EQ(bench.State.BlockCount, 1);
}

TEST(RealTimeMode, BeginsTheNextBlockAtRowZero) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.State.RealTimeMode = true;

  bench.Receive(801, Signal);

  EXPECT_EQ(bench.State.BlockCount, 2);
  EXPECT_EQ(bench.Block.SampleCount(0), 800);
  EXPECT_EQ(bench.Block.SampleCount(1), 401);
}

TEST(RealTimeMode, DoesNotKeepTheOtherViewsFromStopping) {
  CaptureBench bench;
  bench.RunWithLength("LookingForScope");
  bench.State.LookingForValues = true;
  bench.State.RealTimeMode = true;

  bench.Receive(400, Signal);

  EXPECT_THAT(bench.Journal,
              ElementsAre("pump", "stop", "pump", "clear", "pump", "plot Auto", "pump"));
}

TEST(RealTimeMode, ShowsEachFrame) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.State.RealTimeMode = true;
  bench.Receive(400, [](int i) { return SvFrame().Raw(0, i % 2 == 0 ? 3000 : -3000).Bytes(); });
  EXPECT_EQ(bench.Main.Label5[0].Caption, "3.00");

  bench.Receive(SvFrame().Raw(0, 63000).Bytes());

  // One cell of 63 A in a column of plus and minus 3 A: the root of 18.9 - 0.15 * 0.15.
  EXPECT_EQ(bench.Main.Label5[0].Caption, "4.34");
}

// The progress of a recording.

struct Progress {
  int Frames;
  const char* Caption;
  friend void PrintTo(const Progress& progress, std::ostream* out) {
    *out << progress.Frames << " frames";
  }
};

class RecordingProgress : public testing::TestWithParam<Progress> {};

TEST_P(RecordingProgress, IsShownWithEachBlock) {
  CaptureBench bench;
  bench.Main.Label10[3].Caption = "before";
  bench.RunWithLength("LookingForRecording");

  bench.Receive(GetParam().Frames, Signal);

  EXPECT_EQ(bench.Main.Label10[3].Caption, GetParam().Caption);
}

INSTANTIATE_TEST_SUITE_P(
    CompleteBlock, RecordingProgress,
    testing::Values(Progress{399, "before"}, Progress{400, "0.1s / 400 samples"},
                    Progress{1200, "0.3s / 1200 samples"}, Progress{3600, "0.9s / 3600 samples"},
                    Progress{4000, "0.9s / 3600 samples"}, Progress{4400, "1s / 4000 samples"}));

TEST(RecordingProgress, CountsSecondsOf4000SamplesAtAnyBaseFrequency) {
  CaptureBench bench;
  bench.Settings.BaseFrequency = 60;
  bench.RunWithLength("LookingForRecording");

  bench.Receive(400, Signal);

  EXPECT_EQ(bench.Main.Label10[3].Caption, "0.1s / 400 samples");
}

TEST(RecordingProgress, CountsSecondsOf4000SamplesWithAnyBlock) {
  CaptureBench bench;
  bench.Present.BaseSamples = 100;
  bench.Block.Rebuild(100);
  bench.RunWithLength("LookingForRecording");

  bench.Receive(300, Signal);

  EXPECT_EQ(bench.Main.Label10[3].Caption, "0.075s / 300 samples");
}

TEST(RecordingProgress, SpeaksTheLocalesNumbers) {
  CaptureBench bench;
  bench.Numbers = platform::NumberText({',', '.'});
  bench.State.BlockCount = 4;
  bench.RunWithLength("LookingForRecording");

  bench.Receive(400, Signal);

  EXPECT_EQ(bench.Main.Label10[3].Caption, "0,5s / 2000 samples");
}

TEST(RecordingProgress, GoesOnBeyondTheLargestNumberOf32Bits) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  bench.State.BlockCount = 2147483647 / 400;

  bench.Receive(400, Signal);
  EXPECT_EQ(bench.Main.Label10[3].Caption, "536871s / 2147484000 samples");
  bench.Receive(400, Signal);
  EXPECT_EQ(bench.Main.Label10[3].Caption, "536871.1s / 2147484400 samples");
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST(RecordingProgress, NeitherStopsCaptureNorRestartsIt) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");

  bench.Receive(400, Signal);

  EXPECT_THAT(bench.Journal, ElementsAre("pump"));
  EXPECT_TRUE(bench.State.CaptureRunning);
  EXPECT_FALSE(bench.Main.Timer2.Enabled);
}

TEST(RecordingProgress, IsNotShownByAView) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");

  bench.Receive(400, Signal);

  EXPECT_EQ(bench.Main.Label10[3].Caption, "0 s / 0 samples");
}

TEST(CompleteBlock, CountsNoFurtherThanItsNumberGoes) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  bench.State.BlockCount = std::numeric_limits<std::int32_t>::max();
  bench.State.BlockCount2 = std::numeric_limits<std::int32_t>::max();

  bench.Receive(400, Signal);
  bench.Receive(400, [](int i) { return PlainFrame(i, "MU02"); });

  EXPECT_EQ(bench.State.BlockCount, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(bench.State.BlockCount2, std::numeric_limits<std::int32_t>::max());
}

}  // namespace
