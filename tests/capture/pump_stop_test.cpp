// What can happen inside the two pumps of a stop, and inside a pump of a pump.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::FrameBytes;
using support::PlainFrame;
using testing::Contains;
using testing::ElementsAre;
using std::chrono_literals::operator""s;

FrameBytes Frame(int i) {
  return PlainFrame(i);
}

class PumpOfTheStop : public testing::TestWithParam<int> {
 protected:
  PumpOfTheStop() { bench.RunWithLength("LookingForValues"); }

  CaptureBench bench;
};

TEST_P(PumpOfTheStop, TakesAFrameInFlight) {
  bench.Events.AtPump(GetParam(), [&] { bench.Capture.ReceiveInFlight(Frame(7)); });

  bench.Acquisition.StopCapture();

  EXPECT_TRUE(bench.State.OffsetsKnown[0]);
  EXPECT_EQ(bench.Block.SampleCount(0), 7);
}

TEST_P(PumpOfTheStop, MeasuresAFrameInFlight) {
  bench.State.PacketLengthPending = true;
  bench.Events.AtPump(GetParam(), [&] { bench.Capture.ReceiveInFlight(Frame(7)); });

  bench.Acquisition.StopCapture();

  EXPECT_FALSE(bench.State.PacketLengthPending);
  EXPECT_EQ(bench.Block.SampleCount(0), 0);
}

TEST_P(PumpOfTheStop, ShowsABlockThatAFrameInFlightCompletes) {
  bench.Receive(399, Frame);
  bench.Events.AtPump(GetParam(), [&] { bench.Capture.ReceiveInFlight(Frame(399)); });

  bench.Acquisition.StopCapture();

  EXPECT_THAT(bench.Journal, Contains("calculate values"));
  EXPECT_EQ(std::count(bench.Journal.begin(), bench.Journal.end(), "stop"), 2);
  EXPECT_FALSE(bench.State.CaptureRunning);
  EXPECT_TRUE(bench.Main.Timer2.Enabled);
}

TEST_P(PumpOfTheStop, TakesNoFrameAnyMoreBehindANestedStop) {
  bench.Events.AtPump(GetParam(), [&] {
    bench.Acquisition.StopCapture();
    bench.Capture.ReceiveInFlight(Frame(7));
  });

  bench.Acquisition.StopCapture();

  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
}

TEST_P(PumpOfTheStop, LetsATimerFire) {
  bool running = false;
  int fired = 0;
  bench.Main.Timer3.Elapsed = [&] {
    ++fired;
    running = bench.State.CaptureRunning;
  };
  bench.Main.Timer3.Enabled = true;
  if (GetParam() == 1) {
    bench.Clock.Advance(1s);
  } else {
    bench.Events.AtPump(1, [&] { bench.Clock.Advance(1s); });
  }

  bench.Acquisition.StopCapture();

  EXPECT_EQ(fired, 1);
  EXPECT_TRUE(running);
}

TEST_P(PumpOfTheStop, LetsARunGoOnThatBeginsInIt) {
  bench.Events.AtPump(GetParam(), [&] {
    bench.Acquisition.StartCapture("LookingForPhases");
    ASSERT_TRUE(bench.Capture.Running);
  });

  EXPECT_FALSE(bench.Acquisition.StopCapture());

  EXPECT_TRUE(bench.Capture.Running);
  EXPECT_TRUE(bench.State.CaptureRunning);
  for (const auto& indicator : bench.Main.Shape12) EXPECT_TRUE(indicator.Visible);
}

TEST_P(PumpOfTheStop, LeavesAStartBehindToANewerOne) {
  bench.Events.AtPump(GetParam(), [&] { bench.Acquisition.StartCapture("LookingForPhases"); });

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_EQ(std::count(bench.Journal.begin(), bench.Journal.end(), "start"), 1);
  EXPECT_TRUE(bench.State.CaptureRunning);
  EXPECT_TRUE(bench.Main.Timer1.Enabled);
}

TEST_P(PumpOfTheStop, StopsWhereNothingBegins) {
  EXPECT_TRUE(bench.Acquisition.StopCapture());

  EXPECT_FALSE(bench.State.CaptureRunning);
}

/// A mode that is taken back in the pumps of its own start.
class TakenBack : public testing::TestWithParam<std::tuple<std::size_t, int>> {};

TEST_P(TakenBack, StartsNothing) {
  CaptureBench bench;
  const auto [place, pump] = GetParam();
  const packetroutines::Mode& mode = packetroutines::Modes[place];
  bench.Events.AtPump(pump, [&] { bench.State.*mode.Flag = false; });

  bench.Acquisition.StartCapture(packetroutines::ModeName::Any(mode.Name));

  EXPECT_THAT(bench.Journal, testing::Not(Contains("start")));
  EXPECT_FALSE(bench.State.CaptureRunning);
  EXPECT_FALSE(bench.Main.Timer1.Enabled);
  for (const auto& indicator : bench.Main.Shape12) EXPECT_FALSE(indicator.Visible);
}

INSTANTIATE_TEST_SUITE_P(StartCapture, TakenBack,
                         testing::Combine(testing::Range<std::size_t>(0,
                                                                      packetroutines::Modes.size()),
                                          testing::Values(1, 2)));

INSTANTIATE_TEST_SUITE_P(StopCapture, PumpOfTheStop, testing::Values(1, 2));

TEST(StopCapture, ForgetsTheOffsetsOfAFrameInFlightWhenARestartCausedIt) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Events.AtPump(2, [&] { bench.Capture.ReceiveInFlight(Frame(7)); });

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
  // The frame has turned the watchdog off that the restart had armed before.
  EXPECT_FALSE(bench.Main.Timer1.Enabled);
}

// A block inside the pump of a block.

TEST(CompleteBlock, IsServedInsideThePumpOfAnotherOne) {
  CaptureBench bench;
  bench.Present.BaseSamples = 1;
  bench.Block.Rebuild(1);
  bench.RunWithLength("LookingForScope");
  bench.Events.AtPump(1, [&] { bench.Receive(Frame(1)); });

  bench.Receive(Frame(0));

  // The outer block is plotted as the second one, which it is by now.
  EXPECT_THAT(bench.Journal,
              ElementsAre("pump",                                                           //
                          "pump", "stop", "pump", "clear", "pump", "plot Manuell", "pump",  //
                          "stop", "pump", "clear", "pump", "plot Manuell", "pump"));
  EXPECT_EQ(bench.State.BlockCount, 2);
}

TEST(CompleteBlock, KeepsItsOwnVerdictOverAFrameInItsPump) {
  CaptureBench bench;
  bench.Present.BaseSamples = 2;
  bench.Block.Rebuild(2);
  bench.RunWithLength("LookingForValues");
  bench.Receive(PlainFrame(0, "MU01", 0));
  bench.Events.AtPump(1, [&] { bench.Receive(Frame(5)); });

  bench.Receive(PlainFrame(1, "MU01", 0));

  EXPECT_EQ(bench.Block.SampleCount(0), 5);
  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", "pump"));
}

class ViewPump : public testing::TestWithParam<const char*> {};

TEST_P(ViewPump, DropsAFrame) {
  CaptureBench bench;
  bench.RunWithLength(GetParam());
  bench.Receive(399, Frame);
  bench.Events.AtPump(4, [&] { bench.Capture.ReceiveInFlight(Frame(3333)); });

  bench.Receive(Frame(399));

  EXPECT_EQ(bench.Events.Count(), 2 + 4);
  EXPECT_EQ(bench.Block.SampleCount(0), 0);
}

TEST_P(ViewPump, LeavesTheRestartArmedWhateverTheModeIsBehindIt) {
  CaptureBench bench;
  bench.RunWithLength(GetParam());
  bench.Receive(399, Frame);
  bench.Events.AtPump(4, [&] {
    bench.State.LookingForScope = false;
    bench.State.LookingForValues = false;
    bench.State.LookingForPhases = false;
  });

  bench.Receive(Frame(399));

  EXPECT_TRUE(bench.Main.Timer2.Enabled);
}

TEST_P(ViewPump, LeavesTheViewAloneThatIsEndedAtTheFirstPump) {
  CaptureBench bench;
  bench.RunWithLength(GetParam());
  bench.Receive(399, Frame);
  bench.Events.AtPump(1, [&] {
    bench.State.LookingForScope = false;
    bench.State.LookingForValues = false;
    bench.State.LookingForPhases = false;
  });

  bench.Receive(Frame(399));

  EXPECT_THAT(bench.Journal, ElementsAre("pump"));
  EXPECT_TRUE(bench.State.CaptureRunning);
}

INSTANTIATE_TEST_SUITE_P(CompleteBlock, ViewPump,
                         testing::Values("LookingForScope", "LookingForValues",
                                         "LookingForPhases"));

}  // namespace
