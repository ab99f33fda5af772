#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "support/capture_bench.h"
#include "support/scene.h"

namespace {

using packetroutines::AcquisitionState;
using support::CaptureBench;
using support::PlainFrame;
using support::Scene;
using support::SceneEnded;
using support::SineFrame;
using testing::ElementsAre;
using testing::IsEmpty;

/// The mode flags that are set, in the order of the modes.
std::vector<std::string> FlagsOf(const AcquisitionState& state) {
  std::vector<std::string> flags;
  if (state.ReportRequested) flags.push_back("ReportRequested");
  if (state.LookingForScope) flags.push_back("LookingForScope");
  if (state.LookingForValues) flags.push_back("LookingForValues");
  if (state.LookingForPhases) flags.push_back("LookingForPhases");
  if (state.LookingForRecording) flags.push_back("LookingForRecording");
  if (state.LookingForID) flags.push_back("LookingForID");
  return flags;
}

struct ModeRow {
  const char* Mode;
  std::int32_t Interval;
  const char* Flag;
  friend void PrintTo(const ModeRow& row, std::ostream* out) { *out << row.Mode; }
};

class ModeTable : public testing::TestWithParam<ModeRow> {};

TEST_P(ModeTable, ArmsTheWatchdogAndSetsOneFlag) {
  CaptureBench bench;

  bench.Acquisition.StartCapture(packetroutines::ModeName::Any(GetParam().Mode));

  EXPECT_EQ(bench.Main.Timer1.Interval, GetParam().Interval);
  EXPECT_TRUE(bench.Main.Timer1.Enabled);
  EXPECT_THAT(FlagsOf(bench.State), ElementsAre(GetParam().Flag));
  EXPECT_TRUE(bench.State.CaptureRunning);
}

INSTANTIATE_TEST_SUITE_P(StartCapture, ModeTable,
                         testing::Values(ModeRow{"Report", 4000, "ReportRequested"},
                                         ModeRow{"LookingForScope", 2000, "LookingForScope"},
                                         ModeRow{"LookingForValues", 2000, "LookingForValues"},
                                         ModeRow{"LookingForPhases", 2000, "LookingForPhases"},
                                         ModeRow{"LookingForRecording", 2000,
                                                 "LookingForRecording"},
                                         ModeRow{"LookingForID", 2000, "LookingForID"}));

class UnknownMode : public testing::TestWithParam<const char*> {};

TEST_P(UnknownMode, StartsCaptureWithoutFlagAndWatchdog) {
  CaptureBench bench;
  bench.Main.Timer1.Interval = 77;

  bench.Acquisition.StartCapture(packetroutines::ModeName::Any(GetParam()));

  EXPECT_THAT(FlagsOf(bench.State), IsEmpty());
  EXPECT_FALSE(bench.Main.Timer1.Enabled);
  EXPECT_EQ(bench.Main.Timer1.Interval, 77);
  EXPECT_TRUE(bench.State.CaptureRunning);
  EXPECT_TRUE(bench.Capture.Running);
}

INSTANTIATE_TEST_SUITE_P(StartCapture, UnknownMode,
                         testing::Values("", "report", "REPORT", "Report ", " Report",
                                         "ReportRequested", "lookingforvalues", "LookingForvalues",
                                         "LookingForValue", "LookingForValues2", "LookingForId"));

TEST(StartCapture, ExtractsNothingInAnUnknownMode) {
  CaptureBench bench;
  bench.RunWithLength("Nothing");

  bench.Receive(400, [](int i) { return PlainFrame(i + 1); });

  EXPECT_EQ(bench.Block.SampleCount(0), 0);
  EXPECT_EQ(bench.State.BlockCount, 0);
  EXPECT_TRUE(bench.State.CaptureRunning);
}

TEST(StartCapture, WritesTheIntervalBeforeItArmsTheWatchdog) {
  CaptureBench bench;
  bench.Watch(bench.Main.Timer1.Interval, "Timer1.Interval");
  bench.Watch(bench.Main.Timer1.Enabled, "Timer1.Enabled");

  bench.Acquisition.StartCapture("Report");

  ASSERT_GE(bench.Journal.size(), 3U);
  EXPECT_EQ(bench.Journal[0], "Timer1.Interval 4000");
  EXPECT_EQ(bench.Journal[1], "Timer1.Enabled true");
  EXPECT_EQ(bench.Journal[2], "stop");
}

TEST(StartCapture, ShowsTheIndicatorsBehindTheStopAndBeforeTheStart) {
  CaptureBench bench;
  for (std::size_t i = 0; i < 4; ++i) {
    bench.Watch(bench.Main.Shape12[i].Visible, "Shape12(" + std::to_string(i) + ")");
  }

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_THAT(bench.Journal,
              ElementsAre("Shape12(0) false", "Shape12(1) false", "Shape12(2) false",
                          "Shape12(3) false", "stop", "pump", "clear", "pump", "Shape12(0) true",
                          "Shape12(1) true", "Shape12(2) true", "Shape12(3) true", "start"));
}

TEST(StartCapture, SetsTheFlagBeforeTheStopAndForgetsTheOffsetsBehindIt) {
  CaptureBench bench;
  bench.State.OffsetsKnown = {true, true};
  std::vector<std::string> seen;
  const auto look = [&](const char* where) {
    seen.push_back(where);
    if (bench.State.LookingForScope) seen.emplace_back("flag");
    if (bench.State.OffsetsKnown[0] && bench.State.OffsetsKnown[1]) seen.emplace_back("offsets");
    if (bench.State.CaptureRunning) seen.emplace_back("running");
  };
  bench.Events.AtPump(2, [&] { look("last pump of the stop:"); });
  bench.Capture.AtStart = [&] { look("start:"); };

  bench.Acquisition.StartCapture("LookingForScope");

  EXPECT_THAT(seen, ElementsAre("last pump of the stop:", "flag", "offsets", "start:", "flag"));
  EXPECT_THAT(bench.State.OffsetsKnown, ElementsAre(false, false));
  EXPECT_TRUE(bench.State.CaptureRunning);
}

TEST(StartCapture, EndsARunningBurstFirst) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Receive(PlainFrame(0));
  ASSERT_TRUE(bench.State.OffsetsKnown[0]);

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump", "start"));
  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
  EXPECT_TRUE(bench.State.CaptureRunning);
}

TEST(StartCapture, AddsItsFlagToThoseThatAreSet) {
  CaptureBench bench;
  bench.Acquisition.StartCapture("LookingForScope");

  bench.Acquisition.StartCapture("LookingForPhases");

  EXPECT_THAT(FlagsOf(bench.State), ElementsAre("LookingForScope", "LookingForPhases"));
}

TEST(StartCapture, LeavesTheFrameLengthAsMeasured) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_FALSE(bench.State.PacketLengthPending);
}

// A tab change in a pump of the start's own stop.

class PumpOfTheStart : public testing::TestWithParam<int> {};

TEST_P(PumpOfTheStart, DropsTheStartWhereTheTabChangesInIt) {
  CaptureBench bench;
  bench.Run("LookingForValues");
  bench.Journal.clear();
  bench.Events.AtPump(GetParam(), [&] {
    ++bench.State.PagesLeft;
    bench.State.LookingForValues = false;
  });

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump"));
  EXPECT_FALSE(bench.State.CaptureRunning);
  EXPECT_FALSE(bench.State.LookingForValues);
  for (const platform::Shape& lamp : bench.Main.Shape12) EXPECT_FALSE(lamp.Visible);
}

TEST_P(PumpOfTheStart, DropsTheStartWhereTheRunIsStoppedInIt) {
  CaptureBench bench;
  bench.Run("LookingForValues");
  bench.Journal.clear();
  bench.Events.AtPump(GetParam(), [&] {
    bench.State.LookingForValues = false;
    bench.Acquisition.StopCapture();
  });

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_THAT(bench.Journal, testing::Not(testing::Contains("start")));
  EXPECT_FALSE(bench.State.CaptureRunning);
}

INSTANTIATE_TEST_SUITE_P(StartCapture, PumpOfTheStart, testing::Values(1, 2));

TEST(StartCapture, IsNotDroppedForATabChangeOfLongAgo) {
  CaptureBench bench;
  bench.State.PagesLeft = 7;

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_TRUE(bench.State.CaptureRunning);
}

// A filter that is refused.

constexpr auto FilterRefused = static_cast<std::int32_t>(0x80040231U);

TEST(StartCaptureWithARefusedFilter, ShowsOneBoxAndDoesNotRun) {
  CaptureBench bench;
  bench.Capture.StartFailure = platform::Failure(FilterRefused);

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_THAT(bench.Dialogs.Shown, ElementsAre(platform::Message{
                                       "Attention",
                                       "Can't receive packets!\r\n\r\nReason:\r\n"
                                       "- filter setup ('Packet filter condition') isn't correct",
                                       platform::Icon::Exclamation, platform::Buttons::Ok}));
  EXPECT_FALSE(bench.State.CaptureRunning);
  EXPECT_EQ(bench.Journal.back(), "box Attention");
}

TEST(StartCaptureWithARefusedFilter, GivesTheButtonsBackInOrderBeforeTheBox) {
  CaptureBench bench;
  forms::Main& main = bench.Main;
  bench.Capture.StartFailure = platform::Failure(FilterRefused);
  main.Command2.Enabled = false;
  main.CWButton4.Enabled = false;
  for (platform::CWButton* button :
       {&main.CWButton1, &main.CWButton2, &main.CWButton3, &main.CWButton4}) {
    button->Value = true;
  }
  bench.Capture.AtStart = [&] {
    bench.State.OffsetsKnown = {true, true};
    bench.Journal.clear();
    bench.Watch(main.Timer1.Enabled, "Timer1.Enabled");
    bench.Watch(main.Command2.Enabled, "Command2.Enabled");
    bench.Watch(main.CWButton1.Value, "CWButton1.Value");
    bench.Watch(main.CWButton2.Value, "CWButton2.Value");
    bench.Watch(main.CWButton3.Value, "CWButton3.Value");
    bench.Watch(main.CWButton4.Value, "CWButton4.Value");
    bench.Watch(main.CWButton4.Enabled, "CWButton4.Enabled");
  };

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_THAT(bench.Journal,
              ElementsAre("Timer1.Enabled false", "Command2.Enabled true", "CWButton1.Value false",
                          "CWButton3.Value false", "CWButton4.Value false",
                          "CWButton4.Enabled true", "CWButton2.Value false", "box Attention"));
  EXPECT_THAT(bench.State.OffsetsKnown, ElementsAre(false, false));
}

class RefusedFilter : public testing::TestWithParam<const char*> {};

TEST_P(RefusedFilter, TurnsTheIndicatorsOffBeforeTheBox) {
  CaptureBench bench;
  bench.Capture.StartFailure = platform::Failure(FilterRefused);
  const auto lit = [&] {
    return std::count_if(bench.Main.Shape12.begin(), bench.Main.Shape12.end(),
                         [](const platform::Shape& lamp) { return lamp.Visible.Get(); });
  };
  std::ptrdiff_t litAtStart = 0;
  std::ptrdiff_t litAtBox = 4;
  bench.Capture.AtStart = [&] { litAtStart = lit(); };
  bench.Dialogs.WhileOpen = [&] { litAtBox = lit(); };

  bench.Acquisition.StartCapture(packetroutines::ModeName::Any(GetParam()));

  EXPECT_EQ(litAtStart, 4);
  EXPECT_EQ(litAtBox, 0);
}

INSTANTIATE_TEST_SUITE_P(StartCapture, RefusedFilter,
                         testing::Values("LookingForValues", "LookingForPhases",
                                         "LookingForScope"));

TEST(StartCaptureWithARefusedFilter, FiresTheStopPathsOfTheButtons) {
  CaptureBench bench;
  std::vector<std::string> stopped;
  const auto arm = [&](platform::CWButton& button, const char* name) {
    button.Value = true;
    button.ValueChanged = [&stopped, name] { stopped.push_back(name); };
  };
  arm(bench.Main.CWButton1, "CWButton1");
  arm(bench.Main.CWButton2, "CWButton2");
  arm(bench.Main.CWButton3, "CWButton3");
  arm(bench.Main.CWButton4, "CWButton4");
  bench.Capture.StartFailure = platform::Failure(FilterRefused);

  bench.Acquisition.StartCapture("LookingForValues");

  EXPECT_THAT(stopped, ElementsAre("CWButton1", "CWButton3", "CWButton4", "CWButton2"));
}

TEST(RunButtonWithARefusedFilter, CanBePressedAgain) {
  Scene scene;
  scene.Start();
  scene.Capture.StartFailure = platform::Failure(FilterRefused);

  scene.Main.CWButton4.Value = true;
  EXPECT_FALSE(scene.Main.CWButton4.Value);
  EXPECT_TRUE(scene.Main.CWButton4.Enabled);
  scene.Elapse(std::chrono::seconds(10));
  EXPECT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_TRUE(scene.Dialogs.TimedShown.empty());

  scene.Capture.StartFailure.reset();
  scene.RunValues();
  scene.Receive(400, [](int i) { return SineFrame(i, 100, 10); });
  EXPECT_EQ(scene.Main.Label5[0].Caption, "100.0000");
}

// Any other failure of the start.

TEST(StartCapture, EndsTheProgramAtAnyOtherFailure) {
  CaptureBench bench;
  bench.Capture.StartFailure = platform::Failure(57);

  EXPECT_THROW(bench.Acquisition.StartCapture("LookingForValues"), SceneEnded);

  EXPECT_THAT(bench.Dialogs.Shown,
              ElementsAre(platform::Message{"Attention",
                                            "Unknown error!\r\n\r\n"
                                            "Can't handle network connection!\r\n\r\n"
                                            "Reason:\r\n- setup isn't correct",
                                            platform::Icon::Exclamation, platform::Buttons::Ok}));
  EXPECT_EQ(bench.Journal.back(), "end");
}

// A program that runs on without a capture object.

class NoCaptureObject : public testing::Test {
 protected:
  NoCaptureObject() {
    fresh.Upper.Finder = bench.Report;
    bench.Capture.CreateFailure = platform::Failure(429);
    bench.Dialogs.Answers = {platform::Answer::No};
    session.FillAdapterList();
    bench.Journal.clear();
    bench.Dialogs.Shown.clear();
  }

  CaptureBench bench;
  packetroutines::Acquisition fresh{
      bench.Main,
      bench.Config,
      {bench.Capture, bench.Timers, bench.Code, bench.Numbers, bench.Services}};
  packetroutines::CaptureSession& session = fresh.Capture;
};

TEST_F(NoCaptureObject, ReportsTheSetupAndGoesOn) {
  session.SetupAdapter(262144);

  ASSERT_EQ(bench.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(bench.Dialogs.Shown[0].Text,
            "unknown error\r\nObject variable not set\r\n"
            "This happens while initialization of network adapters.\r\n\r\n"
            "Please check first, if your setup is complete.\r\n"
            "Second, if the installation is complete (WinPcap/PacketX).");
}

TEST_F(NoCaptureObject, StopsWithoutAMessage) {
  session.StopCapture();

  EXPECT_THAT(bench.Journal, IsEmpty());
}

TEST_F(NoCaptureObject, EndsTheProgramAtAStart) {
  EXPECT_THROW(session.StartCapture("LookingForValues"), SceneEnded);

  EXPECT_THAT(bench.Journal, ElementsAre("box Attention", "end"));
}

}  // namespace
