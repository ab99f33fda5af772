// The frame of a report and the frames of the stream finder.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/capture_bench.h"

namespace {

using packetroutines::PacketBytes;
using support::CaptureBench;
using support::FrameBytes;
using support::PlainFrame;
using support::SceneEnded;
using testing::_;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// Keeps what the report analysis got: the cells from 1 on.
class SeenReport {
 public:
  explicit SeenReport(CaptureBench& bench) {
    ON_CALL(bench.Report, ReportAnalyse).WillByDefault([&bench, this](const PacketBytes& bytes) {
      bench.Journal.push_back("analyse report");
      Cells.clear();
      for (std::int32_t i = 1; i <= bytes.Upper(); ++i) Cells.push_back(bytes(i));
      return "MU01";
    });
  }
  FrameBytes Cells;
};

// The report.

TEST(ReportFrame, IsTheSecondFrameAfterTheStart) {
  CaptureBench bench;
  EXPECT_CALL(bench.Report, ReportAnalyse).Times(0);
  bench.Run("Report");
  bench.Receive(PlainFrame(0));
  testing::Mock::VerifyAndClearExpectations(&bench.Report);

  EXPECT_CALL(bench.Report, ReportAnalyse).Times(1);
  bench.Receive(PlainFrame(1));
  bench.Receive(PlainFrame(2));
}

TEST(ReportFrame, StopsCaptureAndGivesTheButtonsBackInOrder) {
  CaptureBench bench;
  forms::Main& main = bench.Main;
  main.Command2.Value = true;
  main.Command2.Visible = false;
  main.Command4.Enabled = false;
  bench.RunWithLength("Report");
  bench.Watch(main.Command2.Value, "Command2.Value");
  bench.Watch(main.Command2.Visible, "Command2.Visible");
  bench.Watch(main.Command4.Enabled, "Command4.Enabled");

  bench.Receive(PlainFrame(1));

  EXPECT_THAT(bench.Journal,
              ElementsAre("stop", "pump", "clear", "pump", "Command2.Value false", "pump",
                          "analyse report", "Command2.Visible true", "Command4.Enabled true"));
  EXPECT_FALSE(bench.State.ReportRequested);
  EXPECT_FALSE(bench.State.CaptureRunning);
}

TEST(ReportFrame, LeavesTheWatchdogArmed) {
  CaptureBench bench;
  bench.RunWithLength("Report");

  bench.Receive(PlainFrame(1));

  EXPECT_TRUE(bench.Main.Timer1.Enabled);
  EXPECT_FALSE(bench.Main.Timer2.Enabled);
}

TEST(ReportFrame, TakesAFrameThatNoContentFilterMatches) {
  CaptureBench bench;
  bench.RunWithLength("Report");
  EXPECT_CALL(bench.Report, ReportAnalyse).Times(1);

  bench.Receive(PlainFrame(1, "MU77"));
}

TEST(ReportFrame, IsTakenForNothingElse) {
  CaptureBench bench;
  bench.RunWithLength("Report");
  bench.State.LookingForValues = true;
  bench.State.LookingForID = true;

  bench.Receive(PlainFrame(1));

  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
  EXPECT_FALSE(bench.Main.Timer2.Enabled);
}

TEST(ReportFrame, IsHandedOverFromPositionOneOn) {
  CaptureBench bench;
  SeenReport seen(bench);
  const FrameBytes frame = PlainFrame(0x1234);
  bench.RunWithLength("Report");

  bench.Receive(frame);

  EXPECT_THAT(seen.Cells, ElementsAreArray(frame));
}

TEST(ReportFrame, HasAnEmptyTailWhereItIsShorterThanExpected) {
  CaptureBench bench;
  SeenReport seen(bench);
  bench.RunWithLength("Report", FrameBytes(5, 0xEE));

  bench.Receive({1, 2, 3});

  EXPECT_THAT(seen.Cells, ElementsAre(1, 2, 3, 0, 0));
}

constexpr const char* DebugText =
    "Debug error: Subscript out of range\r\n\r\n"
    "Please inform us under support@vornik.example about this error.\r\n"
    "It would be useful to get a screenshot together wit a small description\r\n"
    "how the error occured.\r\n\r\n"
    "We apologise about this trouble!";

TEST(ReportFrame, EndsTheProgramWhereItIsLongerThanExpected) {
  CaptureBench bench;
  bench.RunWithLength("Report");
  FrameBytes frame = PlainFrame(1);
  frame.push_back(0);

  EXPECT_THROW(bench.Receive(frame), SceneEnded);

  EXPECT_THAT(
      bench.Dialogs.Shown,
      ElementsAre(platform::Message{"", DebugText, platform::Icon::None, platform::Buttons::Ok}));
  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump", "pump", "box ", "end"));
}

TEST(ReportFrame, EndsTheProgramWhereItsTrueLengthIsLongerThanExpected) {
  CaptureBench bench;
  bench.RunWithLength("Report", FrameBytes(100));

  EXPECT_THROW(bench.Capture.ReceiveCut(FrameBytes(100), 101), SceneEnded);
}

TEST(ReportFrame, TriesAFailedAnalysisAgain) {
  CaptureBench bench;
  bench.RunWithLength("Report");
  EXPECT_CALL(bench.Report, ReportAnalyse)
      .WillOnce(testing::Throw(platform::Failure(61)))
      .WillOnce(testing::Return("MU01"));

  bench.Receive(PlainFrame(1));

  EXPECT_THAT(bench.Journal,
              ElementsAre("stop", "pump", "clear", "pump", "pump", "box unknown exception"));
  EXPECT_TRUE(bench.Main.Command4.Enabled);
}

// The stream finder.

TEST(StreamFinder, TakesOneFrameABurstInOrder) {
  CaptureBench bench;
  bench.RunWithLength("LookingForID");
  bench.Watch(bench.Main.Timer1.Enabled, "Timer1.Enabled");
  bench.Watch(bench.Main.Timer2.Interval, "Timer2.Interval");
  bench.Watch(bench.Main.Timer2.Enabled, "Timer2.Enabled");

  bench.Receive(PlainFrame(1));

  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump", "Timer1.Enabled false",
                                         "Timer2.Interval 500", "analyse report",
                                         "Timer2.Enabled true", "add stream MU01"));
  EXPECT_FALSE(bench.State.CaptureRunning);
  EXPECT_TRUE(bench.State.LookingForID);
}

TEST(StreamFinder, AddsTheIdOfTheFrame) {
  CaptureBench bench;
  bench.RunWithLength("LookingForID");
  ON_CALL(bench.Report, ReportAnalyse).WillByDefault(testing::Return("Feeder 3"));

  bench.Receive(PlainFrame(1, "MU77"));

  EXPECT_EQ(bench.Journal.back(), "add stream Feeder 3");
}

TEST(StreamFinder, TakesEveryFrameWhateverTheContentFilters) {
  CaptureBench bench;
  bench.Settings.FilterContent = {"", ""};
  bench.RunWithLength("LookingForID");
  EXPECT_CALL(bench.Report, AddStreamToList(_)).Times(1);

  bench.Receive(PlainFrame(1, "MU77"));
}

TEST(StreamFinder, ShowsTheAnalysisTheWholeFrame) {
  CaptureBench bench;
  SeenReport seen(bench);
  const FrameBytes frame = PlainFrame(0x1234, "MU02");
  bench.RunWithLength("LookingForID");

  bench.Receive(frame);

  EXPECT_THAT(seen.Cells, ElementsAreArray(frame));
}

TEST(StreamFinder, DropsAFrameLongerThanExpected) {
  CaptureBench bench;
  bench.RunWithLength("LookingForID", FrameBytes(100));

  bench.Receive(FrameBytes(101));

  EXPECT_THAT(bench.Journal, IsEmpty());
  EXPECT_TRUE(bench.State.CaptureRunning);
}

TEST(StreamFinder, ExtractsNothing) {
  CaptureBench bench;
  bench.RunWithLength("LookingForID");
  bench.State.LookingForValues = true;

  bench.Receive(PlainFrame(5));

  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
  EXPECT_EQ(bench.Block.SampleCount(0), 0);
}

TEST(StreamFinder, SpendsItsFirstFrameOnTheLengthWhereNoneWasMeasuredYet) {
  CaptureBench bench;
  ASSERT_TRUE(bench.State.PacketLengthPending) << "at the start of the program";
  bench.Acquisition.StartCapture("LookingForID");
  bench.Journal.clear();

  bench.Receive(PlainFrame(1));
  EXPECT_THAT(bench.Journal, IsEmpty());

  bench.Receive(PlainFrame(2));
  EXPECT_EQ(bench.Journal.back(), "add stream MU01");
}

TEST(StreamFinder, SkipsAnAnalysisThatFailsHarmlessly) {
  CaptureBench bench;
  bench.RunWithLength("LookingForID");
  ON_CALL(bench.Report, ReportAnalyse)
      .WillByDefault(testing::Throw(platform::Failure(static_cast<std::int32_t>(0x8004022BU))));

  bench.Receive(PlainFrame(1));

  EXPECT_TRUE(bench.Main.Timer2.Enabled);
  EXPECT_EQ(bench.Journal.back(), "add stream ");
}

}  // namespace
