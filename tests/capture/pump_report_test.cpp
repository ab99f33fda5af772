// What can happen inside the pumps of a report, of the stream finder and of a recording's blocks.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include "support/capture_bench.h"
#include "support/scene.h"

namespace {

using packetroutines::PacketBytes;
using support::CaptureBench;
using support::FrameBytes;
using support::PlainFrame;
using support::Scene;
using testing::ElementsAre;
using std::chrono_literals::operator""s;

FrameBytes First(int i) {
  return PlainFrame(i, "MU01");
}
FrameBytes Second(int i) {
  return PlainFrame(i, "MU02");
}

// The report: two pumps of its stop, and one behind its button.

constexpr int ReportPump = 3;

class ReportPumps : public testing::Test {
 protected:
  ReportPumps() {
    bench.RunWithLength("Report", FrameBytes(6));
    ON_CALL(bench.Report, ReportAnalyse).WillByDefault([this](const PacketBytes& bytes) {
      bench.Journal.push_back("analyse report");
      for (std::int32_t i = 1; i <= bytes.Upper(); ++i) cells.push_back(bytes(i));
      return "MU01";
    });
  }

  CaptureBench bench;
  FrameBytes cells;
};

TEST_F(ReportPumps, DropTheFrameBehindTheButton) {
  bench.Events.AtPump(ReportPump, [&] {
    bench.Capture.ReceiveInFlight(FrameBytes{9, 9, 9, 9, 9, 9});
  });

  bench.Receive({1, 2, 3});

  EXPECT_THAT(cells, ElementsAre(1, 2, 3, 0, 0, 0));
}

TEST_F(ReportPumps, LeaveTheTailOfAFrameInFlightWhereTheReportsFrameIsShorter) {
  bench.Events.AtPump(1, [&] { bench.Capture.ReceiveInFlight(FrameBytes{9, 8, 7, 6, 5, 4}); });

  bench.Receive({1, 2, 3});

  EXPECT_THAT(cells, ElementsAre(1, 2, 3, 6, 5, 4));
}

TEST_F(ReportPumps, TakeNoSecondFrameForTheReport) {
  bench.Events.AtPump(1, [&] { bench.Capture.ReceiveInFlight(FrameBytes{9, 9, 9, 9, 9, 9}); });
  EXPECT_CALL(bench.Report, ReportAnalyse).Times(1);

  bench.Receive({1, 2, 3});
}

TEST_F(ReportPumps, LetAStopHappenBeforeTheAnalysis) {
  bench.Events.AtPump(ReportPump, [&] { bench.Acquisition.StopCapture(); });

  bench.Receive({1, 2, 3});

  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump", "pump",  //
                                         "stop", "pump", "clear", "pump", "analyse report"));
  EXPECT_THAT(cells, ElementsAre(1, 2, 3, 0, 0, 0));
}

TEST_F(ReportPumps, LetTheWatchdogFireBeforeTheAnalysis) {
  bench.Main.Timer1.Elapsed = [&] {
    bench.Journal.push_back(bench.State.ReportRequested ? "Timer1 requested" : "Timer1");
  };
  bench.Events.AtPump(ReportPump - 1, [&] { bench.Clock.Advance(4s); });

  bench.Receive({1, 2, 3});

  EXPECT_THAT(bench.Journal,
              ElementsAre("stop", "pump", "clear", "pump", "pump", "Timer1", "analyse report"));
}

TEST_F(ReportPumps, LetANewRequestWaitForItsOwnFrame) {
  bench.Events.AtPump(ReportPump, [&] { bench.Acquisition.StartCapture("Report"); });

  bench.Receive({1, 2, 3});
  EXPECT_TRUE(bench.State.ReportRequested);
  EXPECT_TRUE(bench.State.CaptureRunning);
  cells.clear();

  bench.Receive({4, 5, 6});
  EXPECT_THAT(cells, ElementsAre(4, 5, 6, 0, 0, 0));
}

TEST_F(ReportPumps, LeaveFiveHundredCellsBehindAFrameThatSetsTheLength) {
  bench.RunWithLength("Report", FrameBytes(600));
  bench.Events.AtPump(ReportPump - 1, [&] {
    bench.State.PacketLengthPending = true;
    bench.Capture.ReceiveInFlight(FrameBytes(300, 9));
  });

  bench.Receive(FrameBytes(500, 7));

  EXPECT_EQ(cells, FrameBytes(500, 7));
}

TEST_F(ReportPumps, HaveNoRoomForAFrameOf501BytesBehindAFrameThatSetsTheLength) {
  bench.RunWithLength("Report", FrameBytes(600));
  bench.Events.AtPump(ReportPump - 1, [&] {
    bench.State.PacketLengthPending = true;
    bench.Capture.ReceiveInFlight(FrameBytes(300, 9));
  });

  EXPECT_THROW(bench.Receive(FrameBytes(501, 7)), support::SceneEnded);

  EXPECT_TRUE(cells.empty());
}

TEST(ReportPump, LetsTheCheckBoxBeTicked) {
  Scene scene;
  scene.Start();
  scene.RunValues();
  scene.Main.Label5[0].Caption = "old";
  scene.Main.Command4.Enabled = false;
  scene.State.ReportRequested = true;
  scene.Events.AtPump(ReportPump, [&] { scene.Main.Check5.Value = 1; });

  scene.Receive(First(0));

  EXPECT_TRUE(scene.State.RealTimeMode);
  EXPECT_EQ(scene.Main.Label5[0].Caption, "0.0000");
  EXPECT_TRUE(scene.Main.Command4.Enabled);
}

// The stream finder: the two pumps of its stop.

TEST(FinderPumps, TakeAFrameInFlightForTheListFirst) {
  CaptureBench bench;
  bench.RunWithLength("LookingForID");
  std::vector<std::uint8_t> counts;
  ON_CALL(bench.Report, ReportAnalyse).WillByDefault([&](const PacketBytes& bytes) {
    counts.push_back(bytes(1));
    return "MU01";
  });
  bench.Events.AtPump(1, [&] { bench.Capture.ReceiveInFlight(FrameBytes{2}); });

  bench.Receive({1});

  // The buffer is one: the outer frame's analysis reads what the inner one left there.
  EXPECT_THAT(counts, ElementsAre(2, 2));
}

// A recording: the pump at a block of the second stream.

class SecondStreamPump : public testing::Test {
 protected:
  SecondStreamPump() {
    bench.RunWithLength("LookingForRecording");
    bench.Receive(399, Second);
  }

  void At(std::function<void()> event) { bench.Events.AtPump(1, std::move(event)); }

  CaptureBench bench;
};

TEST_F(SecondStreamPump, TakesAFrameOfItsStreamIntoRowZero) {
  At([&] { bench.Receive(Second(3333)); });

  bench.Receive(Second(399));

  EXPECT_EQ(bench.Block.SampleCount2(0), 3333);
  EXPECT_EQ(bench.Rings.RecordCount2(399), 399);
  EXPECT_EQ(bench.Rings.RecordCount2(400), 3333);
  EXPECT_EQ(bench.State.BlockCount2, 1);
}

TEST_F(SecondStreamPump, TakesAFrameOfTheOtherStream) {
  At([&] { bench.Receive(First(3333)); });

  bench.Receive(Second(399));

  EXPECT_EQ(bench.Rings.RecordCount(0), 3333);
}

TEST_F(SecondStreamPump, LetsTheRecordingBeStopped) {
  At([&] {
    bench.State.LookingForRecording = false;
    bench.Acquisition.StopCapture();
  });

  bench.Receive(Second(399));
  bench.Capture.ReceiveInFlight(Second(400));

  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump"));
  EXPECT_EQ(bench.State.BlockCount2, 1);
  EXPECT_EQ(bench.Rings.RecordCount2(400), 0);
}

TEST_F(SecondStreamPump, LetsATimerFire) {
  std::int32_t blocks = -1;
  bench.Main.Timer3.Elapsed = [&] { blocks = bench.State.BlockCount2; };
  bench.Main.Timer3.Enabled = true;
  bench.Clock.Advance(1s);

  bench.Receive(Second(399));

  EXPECT_EQ(blocks, 1);
}

TEST(SecondStreamPumpOfTheProgram, LetsTheCheckBoxBeTicked) {
  Scene scene;
  scene.Start();
  scene.Main.Text1[14].Text = "MU02";
  scene.RunValues();
  scene.State.LookingForValues = false;
  scene.State.LookingForRecording = true;
  scene.Receive(399, Second);
  scene.Events.AtPump(1, [&] { scene.Main.Check5.Value = 1; });

  scene.Receive(Second(399));

  EXPECT_TRUE(scene.State.RealTimeMode);
  EXPECT_TRUE(scene.State.CaptureRunning);
  EXPECT_EQ(scene.State.BlockCount2, 1);
}

// A recording: the pump at a block of the first stream.

TEST(FirstStreamPump, TakesAFrameIntoRowZeroAndTheNextCell) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  bench.Receive(399, First);
  bench.Events.AtPump(1, [&] { bench.Receive(First(3333)); });

  bench.Receive(First(399));

  EXPECT_EQ(bench.Block.SampleCount(0), 3333);
  EXPECT_EQ(bench.Rings.RecordCount(400), 3333);
  EXPECT_EQ(bench.Main.Label10[3].Caption, "0.1s / 400 samples");
}

TEST(FirstStreamPump, ShowsNoProgressWhereTheRecordingIsStoppedInIt) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  bench.Receive(399, First);
  bench.Events.AtPump(1, [&] { bench.State.LookingForRecording = false; });

  bench.Receive(First(399));

  EXPECT_EQ(bench.Main.Label10[3].Caption, "0 s / 0 samples");
}

TEST(FirstStreamPump, LeavesItsFrameInTheBufferForTheSecondStream) {
  CaptureBench bench;
  bench.Settings.FilterContent = {"MU", "MU02"};
  bench.RunWithLength("LookingForRecording");
  // The second stream's first frame restarts the first stream's block.
  bench.Receive(1 + 399, Second);
  bench.Events.AtPump(1, [&] { bench.Receive(PlainFrame(3333, "MU01", 7000)); });

  bench.Receive(Second(400));

  EXPECT_EQ(bench.State.BlockCount, 1);
  EXPECT_EQ(bench.Rings.RecordCount2(400), 3333);
  EXPECT_EQ(bench.Rings.RecordChannel2[0](400), 7);
}

}  // namespace
