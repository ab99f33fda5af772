// The one trap of the packet event.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <ostream>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::FrameBytes;
using support::PlainFrame;
using support::SceneEnded;
using testing::ElementsAre;
using testing::Return;
using testing::Throw;

FrameBytes Frame(int i) {
  return PlainFrame(i);
}

constexpr auto Harmless = static_cast<std::int32_t>(0x8004022BU);

// The failure that does no harm.

TEST(PacketEventTrap, SkipsAStepThatFailsHarmlessly) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  EXPECT_CALL(bench.Views, CalculateValues).WillOnce(Throw(platform::Failure(Harmless)));

  bench.Receive(400, Frame);

  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", "pump"));
  EXPECT_TRUE(bench.Main.Timer2.Enabled);
}

TEST(PacketEventTrap, GoesOnWithTheNextViewBehindASkippedStep) {
  CaptureBench bench;
  bench.RunWithLength("LookingForScope");
  bench.State.LookingForPhases = true;
  EXPECT_CALL(bench.Views, PlotBlock).WillOnce(Throw(platform::Failure(Harmless)));

  bench.Receive(400, Frame);

  EXPECT_THAT(bench.Journal, testing::Contains("update phases"));
}

TEST(PacketEventTrap, LeavesAsUsualBehindASkippedRing) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  EXPECT_CALL(bench.Recorder, WriteRecordBlock(0)).WillOnce(Throw(platform::Failure(Harmless)));

  bench.Receive(4000, Frame);

  EXPECT_EQ(bench.State.BlockCount, 9);
}

// Failures that must not happen.

struct BadFailure {
  std::int32_t Number;
  const char* Text;
  friend void PrintTo(const BadFailure& failure, std::ostream* out) { *out << failure.Text; }
};

class FatalFailure : public testing::TestWithParam<BadFailure> {};

TEST_P(FatalFailure, ShowsTheSupportAddressAndEndsTheProgram) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  EXPECT_CALL(bench.Views, CalculateValues).WillOnce(Throw(platform::Failure(GetParam().Number)));

  EXPECT_THROW(bench.Receive(400, Frame), SceneEnded);

  const std::string text = std::string("Debug error: ") + GetParam().Text +
                           "\r\n\r\n"
                           "Please inform us under support@vornik.example about this error.\r\n"
                           "It would be useful to get a screenshot together wit a small "
                           "description\r\n"
                           "how the error occured.\r\n\r\n"
                           "We apologise about this trouble!";
  EXPECT_THAT(bench.Dialogs.Shown, ElementsAre(platform::Message{"", text, platform::Icon::None,
                                                                 platform::Buttons::Ok}));
  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump", "box ", "end"));
}

INSTANTIATE_TEST_SUITE_P(PacketEventTrap, FatalFailure,
                         testing::Values(BadFailure{13, "Type mismatch"},
                                         BadFailure{9, "Subscript out of range"}));

TEST(PacketEventTrap, EndsTheProgramWhereARecordedRowIsBeyondTheBlock) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  bench.Receive(150, Frame);
  bench.Present.BaseSamples = 100;
  bench.Block.Rebuild(100);

  EXPECT_THROW(bench.Receive(Frame(150)), SceneEnded);

  EXPECT_THAT(bench.Journal, ElementsAre("box ", "end"));
}

TEST(PacketEventTrap, EndsTheProgramWhereARecordedRowOfTheSecondStreamIsBeyondTheBlock) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  bench.Receive(150, [](int i) { return PlainFrame(i, "MU02"); });
  bench.Block.Rebuild(100);

  EXPECT_THROW(bench.Receive(PlainFrame(150, "MU02")), SceneEnded);

  EXPECT_THAT(bench.Journal, ElementsAre("box ", "end"));
}

// Any other failure.

TEST(PacketEventTrap, ShowsAnyOtherFailureAndTriesTheStepAgain) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  EXPECT_CALL(bench.Recorder, WriteRecordBlock(0))
      .WillOnce(Throw(platform::Failure(61)))
      .WillOnce(Throw(platform::Failure(70, "no right to write")))
      .WillOnce(Return());

  bench.Receive(4001, Frame);

  EXPECT_THAT(
      bench.Dialogs.Shown,
      ElementsAre(
          platform::Message{"unknown exception", "unknown error\r\nDisk fullwhile 'onPacket' event",
                            platform::Icon::Critical, platform::Buttons::Ok},
          platform::Message{"unknown exception",
                            "unknown error\r\nno right to writewhile 'onPacket' event",
                            platform::Icon::Critical, platform::Buttons::OkStop}));
  EXPECT_TRUE(bench.State.CaptureRunning);
}

TEST(PacketEventTrap, DoesNotRepeatTheStepsBeforeTheOneThatFailed) {
  CaptureBench bench;
  bench.RunWithLength("LookingForScope");
  EXPECT_CALL(bench.Views, PlotBlock).WillOnce(Throw(platform::Failure(6))).WillOnce(Return());

  bench.Receive(400, Frame);

  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "pump", "clear", "pump",
                                         "box unknown exception", "pump"));
  EXPECT_EQ(bench.State.BlockCount, 1);
}

TEST(PacketEventTrap, BringsTheBoxBackAsLongAsTheFailurePersists) {
  CaptureBench bench;
  bench.RunWithLength("LookingForPhases");
  ON_CALL(bench.Views, UpdatePhases).WillByDefault(Throw(platform::Failure(11)));
  bench.Dialogs.WhileOpen = [&] {
    if (bench.Dialogs.Shown.size() == 20) throw SceneEnded();
  };

  EXPECT_THROW(bench.Receive(400, Frame), SceneEnded);

  EXPECT_EQ(bench.Dialogs.Shown.back().Text,
            "unknown error\r\nDivision by zerowhile 'onPacket' event");
  EXPECT_FALSE(bench.Main.Timer2.Enabled);
}

TEST(PacketEventTrap, SkipsTheStepAndEndsTheRunOnStop) {
  CaptureBench bench;
  bench.RunWithLength("LookingForPhases");
  EXPECT_CALL(bench.Views, UpdatePhases).Times(3).WillRepeatedly(Throw(platform::Failure(11)));
  bench.Dialogs.Answers = {platform::Answer::Ok, platform::Answer::Ok, platform::Answer::Stop};

  bench.Receive(400, Frame);

  EXPECT_THAT(bench.Journal,
              ElementsAre("pump", "stop", "pump", "clear", "pump", "box unknown exception",
                          "box unknown exception", "box unknown exception", "tab change", "pump"));
}

TEST(PacketEventTrap, OffersNoStopForAnotherStepThatFails) {
  CaptureBench bench;
  bench.RunWithLength("LookingForScope");
  bench.State.LookingForPhases = true;
  EXPECT_CALL(bench.Views, PlotBlock).WillOnce(Throw(platform::Failure(6))).WillOnce(Return());
  EXPECT_CALL(bench.Views, UpdatePhases).WillOnce(Throw(platform::Failure(6))).WillOnce(Return());

  bench.Receive(400, Frame);

  ASSERT_EQ(bench.Dialogs.Shown.size(), 2U);
  for (const platform::Message& box : bench.Dialogs.Shown) {
    EXPECT_EQ(box.BoxButtons, platform::Buttons::Ok);
  }
}

TEST(PacketEventTrap, TakesAViewThatRunsOutOfMemoryAsAFailure) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  EXPECT_CALL(bench.Views, CalculateValues).WillOnce(Throw(std::bad_alloc())).WillOnce(Return());

  bench.Receive(400, Frame);

  ASSERT_EQ(bench.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(bench.Dialogs.Shown[0].Text, "unknown error\r\nOut of memorywhile 'onPacket' event");
  EXPECT_TRUE(bench.Main.Timer2.Enabled);
}

TEST(PacketEventTrap, DoesNotSeeAFailureOfTheStop) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Capture.StopFailure = platform::Failure(57);

  bench.Receive(400, Frame);

  EXPECT_THAT(bench.Journal, ElementsAre("pump", "stop", "calculate values", "pump"));
  EXPECT_TRUE(bench.State.CaptureRunning);
  EXPECT_TRUE(bench.Main.Timer2.Enabled);
}

}  // namespace
