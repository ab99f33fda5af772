// Which frames the packet event takes: the measured length, the drops, the content filters.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::FrameBytes;
using support::PlainFrame;
using support::SceneEnded;
using support::SvFrame;
using testing::ElementsAre;
using testing::IsEmpty;

/// A frame of `length` bytes with a text at a 1-based position, in the bytes of the code page.
FrameBytes TextFrame(std::size_t length, std::size_t position, const std::string& text) {
  FrameBytes frame(length);
  std::copy(text.begin(), text.end(), frame.begin() + static_cast<std::ptrdiff_t>(position) - 1);
  return frame;
}

/// A run of the values mode that expects frames of 100 bytes.
class FrameIntake : public testing::Test {
 protected:
  FrameIntake() { bench.RunWithLength("LookingForValues", FrameBytes(100)); }

  bool TakenAsFirst(const FrameBytes& frame) {
    bench.State.OffsetsKnown[0] = false;
    bench.Receive(frame);
    return bench.State.OffsetsKnown[0];
  }
  bool TakenAsSecond(const FrameBytes& frame) {
    bench.State.OffsetsKnown[1] = false;
    bench.Receive(frame);
    return bench.State.OffsetsKnown[1];
  }

  CaptureBench bench;
};

// The length of the frames.

TEST(PacketDispatcher, SpendsTheFirstFrameAfterAStartOnTheLength) {
  CaptureBench bench;
  bench.Run("LookingForValues");

  bench.Receive(PlainFrame(5));

  EXPECT_FALSE(bench.State.PacketLengthPending);
  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
  EXPECT_TRUE(bench.Main.Timer1.Enabled);
  EXPECT_EQ(bench.Block.SampleCount(0), 0);
}

TEST(PacketDispatcher, ExtractsTheFrameBehindTheOneThatSetTheLength) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");

  bench.Receive(PlainFrame(6));

  EXPECT_EQ(bench.Block.SampleCount(0), 6);
}

TEST(PacketDispatcher, MeasuresTheLengthAgainAtTheNextButtonStart) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues", FrameBytes(300));
  bench.RunWithLength("LookingForValues", FrameBytes(100));

  bench.Receive(TextFrame(101, 20, "MU01"));
  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
  bench.Receive(TextFrame(100, 20, "MU01"));
  EXPECT_TRUE(bench.State.OffsetsKnown[0]);
}

TEST(PacketDispatcher, KeepsTheLengthOverARestart) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Acquisition.StartCapture("LookingForValues");

  bench.Receive(PlainFrame(3));

  EXPECT_EQ(bench.Block.SampleCount(0), 3);
}

TEST(PacketDispatcher, MeasuresTheTrueLengthOfAFrameThatTheSourceCut) {
  CaptureBench bench;
  bench.Run("LookingForValues");

  bench.Capture.ReceiveCut(FrameBytes(60), 100);

  bench.Receive(TextFrame(101, 20, "MU01"));
  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
  bench.Receive(TextFrame(100, 20, "MU01"));
  EXPECT_TRUE(bench.State.OffsetsKnown[0]);
}

TEST(PacketDispatcher, TakesALengthOf32767) {
  CaptureBench bench;
  bench.Run("LookingForValues");

  bench.Receive(FrameBytes(32767));
  bench.Receive(TextFrame(32767, 32764, "MU01"));

  EXPECT_TRUE(bench.State.OffsetsKnown[0]);
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST(PacketDispatcher, BringsTheBoxBackForALengthOf32768) {
  CaptureBench bench;
  bench.Run("LookingForValues");
  bench.Dialogs.WhileOpen = [&] {
    if (bench.Dialogs.Shown.size() == 3) throw SceneEnded();
  };

  EXPECT_THROW(bench.Capture.ReceiveCut(FrameBytes(60), 32768), SceneEnded);

  const platform::Message first{"unknown exception",
                                "unknown error\r\nOverflowwhile 'onPacket' event",
                                platform::Icon::Critical, platform::Buttons::Ok};
  EXPECT_THAT(bench.Dialogs.Shown,
              ElementsAre(first, support::WithStop(first), support::WithStop(first)));
}

TEST(PacketDispatcher, AsksForNoFurtherLengthWhileTheBoxOfATooLargeOneStands) {
  CaptureBench bench;
  bench.Run("LookingForValues");
  bool pending = true;
  bench.Dialogs.WhileOpen = [&] {
    pending = bench.State.PacketLengthPending;
    throw SceneEnded();
  };

  EXPECT_THROW(bench.Capture.ReceiveCut(FrameBytes(60), 32768), SceneEnded);

  EXPECT_FALSE(pending);
}

// Drops.

TEST(PacketDispatcher, DropsAFrameThatArrivesAfterTheStop) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Acquisition.StopCapture();

  bench.Capture.ReceiveInFlight(PlainFrame(5));

  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
  EXPECT_EQ(bench.Block.SampleCount(0), 0);
}

TEST(PacketDispatcher, DoesNotMeasureAFrameThatArrivesAfterTheStop) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Acquisition.StopCapture();
  bench.State.PacketLengthPending = true;

  bench.Capture.ReceiveInFlight(PlainFrame(5));

  EXPECT_TRUE(bench.State.PacketLengthPending);
}

TEST_F(FrameIntake, TakesAFrameOfTheExpectedLength) {
  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 20, "MU01")));
}

TEST_F(FrameIntake, DropsAFrameOneByteLongerThanExpected) {
  EXPECT_FALSE(TakenAsFirst(TextFrame(101, 20, "MU01")));
  EXPECT_THAT(bench.Journal, IsEmpty());
}

TEST_F(FrameIntake, TakesAFrameOneByteShorterThanExpected) {
  EXPECT_TRUE(TakenAsFirst(TextFrame(99, 20, "MU01")));
}

TEST_F(FrameIntake, DropsAFrameWhoseTrueLengthIsLongerThanExpected) {
  bench.Capture.ReceiveCut(TextFrame(100, 20, "MU01"), 101);

  EXPECT_FALSE(bench.State.OffsetsKnown[0]);
}

TEST_F(FrameIntake, TakesAFrameThatTheSourceCutWithinTheExpectedLength) {
  bench.Capture.ReceiveCut(TextFrame(60, 20, "MU01"), 100);

  EXPECT_TRUE(bench.State.OffsetsKnown[0]);
}

TEST(PacketDispatcher, ReadsTheMissingTailOfAShortFrameAsZero) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  FrameBytes frame = SvFrame().AllRaw(0x7F7F7F7F).Bytes();
  bench.Receive(frame);
  // The last voltage loses its quality word and its lowest byte.
  frame.resize(frame.size() - 5);

  bench.Receive(frame);

  EXPECT_DOUBLE_EQ(bench.Block.SignalValues.Row(0)[7], 0x7F7F7F7F / 100000.0);
  EXPECT_DOUBLE_EQ(bench.Block.SignalValues.Row(1)[7], 0x7F7F7F00 / 100000.0);
}

TEST(PacketDispatcher, EmptiesTheFrameBuffersForEachFrame) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues", FrameBytes(100));
  bench.Receive(TextFrame(100, 90, "MU02"));
  bench.State.OffsetsKnown[1] = false;

  bench.Receive(TextFrame(50, 20, "none"));

  EXPECT_FALSE(bench.State.OffsetsKnown[1]);
}

// The content filters.

TEST_F(FrameIntake, DoesNotCountATextAtTheVeryFirstByte) {
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 1, "MU01")));
  EXPECT_FALSE(TakenAsSecond(TextFrame(100, 1, "MU02")));
}

TEST_F(FrameIntake, CountsATextAtTheSecondByte) {
  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 2, "MU01")));
  EXPECT_TRUE(TakenAsSecond(TextFrame(100, 2, "MU02")));
}

TEST_F(FrameIntake, CountsATextThatEndsTheFrame) {
  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 97, "MU01")));
}

TEST_F(FrameIntake, LooksAtTheFirstOccurrenceAlone) {
  FrameBytes frame = TextFrame(100, 1, "MU01");
  std::copy_n(frame.begin(), 4, frame.begin() + 50);

  EXPECT_FALSE(TakenAsFirst(frame));
}

TEST_F(FrameIntake, IgnoresAFrameWithoutTheText) {
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "MU0")));
  EXPECT_TRUE(bench.Main.Timer1.Enabled);
}

TEST_F(FrameIntake, IsCaseSensitive) {
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "mu01")));
}

TEST_F(FrameIntake, NeverMatchesAnEmptyText) {
  bench.Settings.FilterContent = {"", ""};

  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "MU01")));
  EXPECT_FALSE(TakenAsSecond(TextFrame(100, 20, "MU01")));
  EXPECT_TRUE(bench.Main.Timer1.Enabled);
}

TEST_F(FrameIntake, FollowsAChangeOfTheText) {
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "Feeder 3")));

  bench.Settings.FilterContent[0] = "Feeder 3";

  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 20, "Feeder 3")));
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "MU01")));
}

TEST_F(FrameIntake, TakesATextOfBothFiltersForBothStreams) {
  bench.Settings.FilterContent = {"MU", "MU02"};

  bench.Receive(TextFrame(100, 20, "MU02"));

  EXPECT_THAT(bench.State.OffsetsKnown, ElementsAre(true, true));
}

TEST_F(FrameIntake, ComparesInTheBytesOfTheCodePage) {
  bench.Settings.FilterContent[0] = "M\xC3\xBCller";

  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 20, "M\xFCller")));
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "M\xC3\xBCller")));
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "Muller")));
}

TEST_F(FrameIntake, ComparesACharacterThatTheCodePageMovesUp) {
  // The euro sign has the byte 0x80.
  bench.Settings.FilterContent[0] =
      "\xE2\x82\xAC"
      "5";

  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 20,
                                     "\x80"
                                     "5")));
}

TEST_F(FrameIntake, FindsATextWithACharacterOutsideTheCodePageInNoFrame) {
  // A capital omega, which becomes a question mark elsewhere.
  bench.Settings.FilterContent[0] = "MU\xCE\xA9";

  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "MU?")));
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "MU\xCE\xA9")));
}

TEST_F(FrameIntake, FindsAQuestionMarkThatTheTextItselfHolds) {
  bench.Settings.FilterContent[0] = "MU?";

  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 20, "MU?")));
}

TEST_F(FrameIntake, GoesBackFromATextThatNoFrameHolds) {
  bench.Settings.FilterContent[0] = "\xCE\xA9";
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 20, "MU01?")));

  bench.Settings.FilterContent[0] = "MU01";

  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 20, "MU01?")));
}

TEST_F(FrameIntake, FindsATextBehindAndBetweenNulBytes) {
  using std::string_literals::operator""s;
  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 50, "\0\0MU01\0\0"s)));
}

TEST_F(FrameIntake, ComparesNulBytesOfTheText) {
  using std::string_literals::operator""s;
  bench.Settings.FilterContent[0] = "A\0B"s;

  EXPECT_TRUE(TakenAsFirst(TextFrame(100, 50, "A\0B"s)));
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 50, "A\0C"s)));
  EXPECT_FALSE(TakenAsFirst(TextFrame(100, 50, "AB"s)));
}

// The first frame of a stream.

TEST(PacketDispatcher, TurnsTheWatchdogOffAtTheFirstMatchingFrame) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Watch(bench.Main.Timer1.Enabled, "Timer1.Enabled");
  bench.Watch(bench.Main.Timer3.Enabled, "Timer3.Enabled");

  bench.Receive(PlainFrame(0));
  bench.Receive(PlainFrame(1));

  EXPECT_THAT(bench.Journal, ElementsAre("Timer1.Enabled false", "Timer3.Enabled true"));
}

TEST(PacketDispatcher, LocatesTheOffsetsOnceABurst) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues", SvFrame().Tagged().Bytes());
  bench.Receive(PlainFrame(0));
  const auto located = bench.State.ValueOffset[0];

  bench.Receive(SvFrame().Tagged().Bytes());
  EXPECT_EQ(bench.State.ValueOffset[0], located);

  bench.Acquisition.StartCapture("LookingForValues");
  bench.Receive(SvFrame().Tagged().Bytes());
  EXPECT_EQ(bench.State.ValueOffset[0], located + 4);
}

TEST(PacketDispatcher, KeepsTheOffsetsOverARestartWhereTheNextFrameTellsNone) {
  CaptureBench bench;
  bench.RunWithLength("LookingForRecording");
  bench.Receive(PlainFrame(0));
  bench.Receive(PlainFrame(0, "MU02"));
  // Frames of the same form, whose first one has neither tag.
  const auto untagged = [&](const char* id, int count) {
    FrameBytes frame = PlainFrame(count, id, 5000);
    for (const std::int16_t at : {bench.State.SampleCountOffset[0], bench.State.ValueOffset[0]}) {
      frame.at(static_cast<std::size_t>(at - 3)) = 0;
    }
    return frame;
  };

  bench.Acquisition.StartCapture("LookingForRecording");
  bench.Receive(untagged("MU01", 77));
  bench.Receive(untagged("MU02", 78));

  EXPECT_EQ(bench.Rings.RecordCount(0), 77);
  EXPECT_EQ(bench.Rings.RecordChannel[0](0), 5);
  EXPECT_EQ(bench.Rings.RecordChannel[7](0), 0.05);
  EXPECT_EQ(bench.Rings.RecordCount2(0), 78);
  EXPECT_EQ(bench.Rings.RecordChannel2[0](0), 5);
  EXPECT_EQ(bench.Rings.RecordChannel2[7](0), 0.05);
}

TEST(PacketDispatcher, StartsAtRowZeroWithEachBurst) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Receive(150, [](int i) { return PlainFrame(i); });
  bench.Acquisition.StartCapture("LookingForValues");

  bench.Receive(PlainFrame(2000));

  EXPECT_EQ(bench.Block.SampleCount(0), 2000);
  EXPECT_EQ(bench.Block.SampleCount(1), 1);
}

TEST(PacketDispatcher, GoesOnWithARowBeyondAShrunkBlockWithoutAMessage) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Receive(150, [](int i) { return PlainFrame(i); });
  bench.Present.BaseSamples = 100;
  bench.Block.Rebuild(100);

  bench.Receive(300, [](int i) { return PlainFrame(i); });

  EXPECT_EQ(bench.State.BlockCount, 0);
  EXPECT_EQ(bench.Block.SampleCount(99), 0);
  EXPECT_THAT(bench.Journal, IsEmpty());
  EXPECT_TRUE(bench.State.CaptureRunning);
}

}  // namespace
