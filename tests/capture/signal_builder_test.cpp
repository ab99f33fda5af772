#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <ostream>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::CellsOf;
using support::FrameBytes;
using support::SvFrame;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

/// The bench with the offsets of a frame of both streams located.
class BuilderBench : public CaptureBench {
 public:
  explicit BuilderBench(const FrameBytes& located = SvFrame().Bytes()) {
    for (const std::size_t stream : {0U, 1U}) {
      Locator.FindDataOffsets(CellsOf(located), static_cast<std::int16_t>(located.size()), stream);
    }
  }

  /// Builds row `row` of the first stream; the result is `SignalOk`.
  bool Build(const FrameBytes& frame, std::int32_t row = 0) {
    bool signalOk = false;
    Builder.BuildingSignals(row, CellsOf(frame), signalOk);
    return signalOk;
  }
  void Build2(const FrameBytes& frame, std::int32_t row = 0) {
    bool signalOk = true;
    Builder.BuildingSignals2(row, CellsOf(frame), signalOk);
    EXPECT_TRUE(signalOk) << "the second stream does not touch the verdict";
  }
  double Value(std::size_t channel, std::int32_t row = 0) const {
    return Block.SignalValues.Row(row)[channel];
  }
  double Value2(std::size_t channel, std::int32_t row = 0) const {
    return Block.SignalValues2.Row(row)[channel];
  }
};

std::int32_t Bits(std::uint32_t pattern) {
  return static_cast<std::int32_t>(pattern);
}

struct Corner {
  std::uint32_t Pattern;
  double Value;
  friend void PrintTo(const Corner& corner, std::ostream* out) {
    *out << "0x" << std::hex << std::uppercase << std::setw(8) << std::setfill('0')
         << corner.Pattern;
  }
};

class SampleCorner : public testing::TestWithParam<Corner> {};

TEST_P(SampleCorner, ReadsTheSameInBothStreams) {
  BuilderBench bench;
  const FrameBytes frame =
      SvFrame().Raw(0, Bits(GetParam().Pattern)).Raw(4, Bits(GetParam().Pattern)).Bytes();

  bench.Build(frame);
  bench.Build2(frame);

  EXPECT_EQ(bench.Value(0), GetParam().Value / 1000);
  EXPECT_EQ(bench.Value(4), GetParam().Value / 100000);
  EXPECT_EQ(bench.Value2(0), GetParam().Value / 1000);
  EXPECT_EQ(bench.Value2(4), GetParam().Value / 100000);
}

INSTANTIATE_TEST_SUITE_P(SignalBuilder, SampleCorner,
                         testing::Values(Corner{0x00000000, 0}, Corner{0x00000001, 1},
                                         Corner{0x01020304, 16909060},
                                         Corner{0x7FFFFFFF, 2147483647.0},
                                         Corner{0x80000000, 2147483648.0},
                                         Corner{0x80000001, -2147483647.0}, Corner{0xFFFFFFFE, -2},
                                         Corner{0xFFFFFFFF, -1}));

TEST(SignalBuilder, ShowsAllOnesAsMinusOneMilliampere) {
  BuilderBench bench;

  bench.Build(SvFrame().Raw(0, Bits(0xFFFFFFFF)).Bytes());

  EXPECT_DOUBLE_EQ(bench.Value(0), -0.001);
}

TEST(SignalBuilder, PutsFourCurrentsBeforeFourVoltages) {
  BuilderBench bench;
  SvFrame frame;
  for (std::size_t k = 0; k < 4; ++k) {
    frame.Raw(k, static_cast<std::int32_t>(1000 * (k + 1)));
    frame.Raw(k + 4, static_cast<std::int32_t>(-100000 * static_cast<int>(k + 5)));
  }

  bench.Build(frame.Bytes(), 7);

  EXPECT_THAT(bench.Block.SignalValues.Row(7), ElementsAre(1, 2, 3, 4, -5, -6, -7, -8));
  EXPECT_THAT(bench.Block.SignalValues.Row(6), Each(0));
  EXPECT_THAT(bench.Block.SignalValues.Row(8), Each(0));
}

TEST(SignalBuilder, KeepsTheSampleCountOfTheRow) {
  BuilderBench bench;

  bench.Build(SvFrame().Count(0xFEDC).Bytes(), 3);

  EXPECT_EQ(bench.Block.SampleCount(3), 0xFEDC);
}

// Units.

struct VoltageUnit {
  float Factor;
  double Shown;
  friend void PrintTo(const VoltageUnit& unit, std::ostream* out) {
    *out << "factor " << std::int64_t{std::llround(unit.Factor)};
  }
};

class VoltageFactor : public testing::TestWithParam<VoltageUnit> {};

TEST_P(VoltageFactor, ScalesTheVoltagesOfTheFirstStreamAlone) {
  BuilderBench bench;
  bench.Present.VoltageUnitFactor = GetParam().Factor;
  const FrameBytes frame = SvFrame().AllRaw(100000).Bytes();

  bench.Build(frame);
  bench.Build2(frame);

  EXPECT_DOUBLE_EQ(bench.Value(4), GetParam().Shown);
  EXPECT_DOUBLE_EQ(bench.Value(0), 100);
  EXPECT_DOUBLE_EQ(bench.Value2(4), 1);
}

INSTANTIATE_TEST_SUITE_P(SignalBuilder, VoltageFactor,
                         testing::Values(VoltageUnit{1, 1}, VoltageUnit{1000, 1000},
                                         VoltageUnit{1000000, 1000000}));

TEST(SignalBuilder, ScalesTheCurrentsOfTheFirstStreamAlone) {
  BuilderBench bench;
  bench.Present.CurrentUnitFactor = 1000;
  const FrameBytes frame = SvFrame().AllRaw(1500).Bytes();

  bench.Build(frame);
  bench.Build2(frame);

  EXPECT_DOUBLE_EQ(bench.Value(0), 1500);
  EXPECT_DOUBLE_EQ(bench.Value(4), 0.015);
  EXPECT_DOUBLE_EQ(bench.Value2(0), 1.5);
}

// Channels.

TEST(SignalBuilder, KeepsTheVoltageCellsWithFourChannels) {
  BuilderBench bench;
  bench.Build(SvFrame().AllRaw(200000).Bytes());
  bench.Build2(SvFrame().AllRaw(200000).Bytes());
  bench.State.ChannelCount = 4;

  bench.Build(SvFrame().AllRaw(1000).Bytes());
  bench.Build2(SvFrame().AllRaw(1000).Bytes());

  EXPECT_THAT(bench.Block.SignalValues.Row(0), ElementsAre(1, 1, 1, 1, 2, 2, 2, 2));
  EXPECT_THAT(bench.Block.SignalValues2.Row(0), ElementsAre(1, 1, 1, 1, 2, 2, 2, 2));
}

TEST(SignalBuilder, LeavesTheVoltageCellsOfANewBlockEmptyWithFourChannels) {
  BuilderBench bench(SvFrame().Channels(4).Trailer(FrameBytes(40, 0xFF)).Bytes());

  bench.Build(SvFrame().Channels(4).AllRaw(1000).Trailer(FrameBytes(40, 0xFF)).Bytes());

  EXPECT_THAT(bench.Block.SignalValues.Row(0), ElementsAre(1, 1, 1, 1, 0, 0, 0, 0));
}

TEST(SignalBuilder, ReadsTheFirstEightOfTwelveChannels) {
  const FrameBytes frame = SvFrame().Channels(12).AllRaw(100000).Bytes();
  BuilderBench bench(frame);

  bench.Build(frame);
  bench.Build2(frame);

  EXPECT_THAT(bench.Block.SignalValues.Row(0), ElementsAre(100, 100, 100, 100, 1, 1, 1, 1));
  EXPECT_THAT(bench.Block.SignalValues2.Row(0), ElementsAre(100, 100, 100, 100, 1, 1, 1, 1));
}

TEST(SignalBuilder, ReadsTheStreamsAtTheirOwnOffsets) {
  BuilderBench bench;
  const FrameBytes tagged = SvFrame().Tagged().Count(5).AllRaw(100000).Bytes();
  bench.Locator.FindDataOffsets(CellsOf(tagged), static_cast<std::int16_t>(tagged.size()), 1);

  bench.Build(SvFrame().Count(4).AllRaw(200000).Bytes());
  bench.Build2(tagged);

  EXPECT_EQ(bench.Block.SampleCount(0), 4);
  EXPECT_EQ(bench.Block.SampleCount2(0), 5);
  EXPECT_EQ(bench.Value(4), 2);
  EXPECT_EQ(bench.Value2(4), 1);
}

// Frames that end early, and offsets that point elsewhere.

TEST(SignalBuilder, ReadsTheEmptyTailOfAShortFrameAsZero) {
  BuilderBench bench;
  FrameBytes frame = SvFrame().AllRaw(0x01010101).Bytes();
  const auto expected = static_cast<std::int16_t>(frame.size());
  // The last voltage loses its quality word and the three low bytes of its value.
  frame.resize(frame.size() - 7);
  bool signalOk = false;

  bench.Builder.BuildingSignals(0, CellsOf(frame, expected), signalOk);

  EXPECT_DOUBLE_EQ(bench.Value(6), 0x01010101 / 100000.0);
  EXPECT_DOUBLE_EQ(bench.Value(7), 0x01000000 / 100000.0);
}

/// Values before a stream that was never located is read: all cells hold a signal.
void FillLastRow(CaptureBench& bench) {
  for (double& cell : bench.Block.SignalValues.Row(399)) cell = 7;
  for (double& cell : bench.Block.SignalValues2.Row(399)) cell = 7;
}

TEST(SignalBuilder, ReadsAStreamThatWasNeverLocatedAsSilence) {
  CaptureBench bench;
  bench.State.ChannelCount = 8;
  FillLastRow(bench);
  bool signalOk = true;

  // The addresses at the head of the frame would make a signal.
  bench.Builder.BuildingSignals(399, CellsOf(SvFrame().AllRaw(100000).Bytes()), signalOk);

  EXPECT_FALSE(signalOk);
  EXPECT_THAT(bench.Block.SignalValues.Row(399), Each(0));
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST(SignalBuilder, ReadsTheCurrentsAloneOfAStreamThatWasNeverLocatedAsSilence) {
  CaptureBench bench;
  bool signalOk = true;

  bench.Builder.BuildingSignals(399, CellsOf(SvFrame().AllRaw(100000).Bytes()), signalOk);

  EXPECT_FALSE(signalOk);
  EXPECT_THAT(bench.Block.SignalValues.Row(399), Each(0));
}

TEST(SignalBuilder, ReadsASecondStreamThatWasNeverLocatedAsZero) {
  CaptureBench bench;
  bench.State.ChannelCount = 8;
  FillLastRow(bench);
  bool signalOk = true;

  bench.Builder.BuildingSignals2(399, CellsOf(SvFrame().AllRaw(100000).Bytes()), signalOk);

  EXPECT_THAT(bench.Block.SignalValues2.Row(399), Each(0));
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST(SignalBuilder, LeavesSilentlyAtAnOffsetBeyondTheFrame) {
  BuilderBench bench;
  bench.Build(SvFrame().AllRaw(100000).Bytes());
  bench.State.ValueOffset[0] = 1000;

  const bool signalOk = bench.Build(SvFrame().Count(9).Bytes());

  EXPECT_FALSE(signalOk);
  EXPECT_EQ(bench.Block.SampleCount(0), 9);
  EXPECT_THAT(bench.Block.SignalValues.Row(0), ElementsAre(100, 100, 100, 100, 1, 1, 1, 1));
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST(SignalBuilder, TakesTheValuesBeforeTheOneThatIsBeyondTheFrame) {
  BuilderBench bench;
  const FrameBytes frame = SvFrame().AllRaw(100000).Bytes();
  // The cells end with the third byte of the second voltage.
  const auto upper = static_cast<std::int16_t>(bench.State.ValueOffset[0] + 32 + 8 + 2);
  bool signalOk = true;

  bench.Builder.BuildingSignals(0, CellsOf(frame, upper), signalOk);

  EXPECT_FALSE(signalOk);
  EXPECT_THAT(bench.Block.SignalValues.Row(0), ElementsAre(100, 100, 0, 0, 1, 0, 0, 0));
}

TEST(SignalBuilder, SkipsTheValuesOfTheSecondStreamThatAreBeyondTheFrame) {
  BuilderBench bench;
  const FrameBytes frame = SvFrame().AllRaw(100000).Bytes();
  const auto upper = static_cast<std::int16_t>(bench.State.ValueOffset[1] + 32 + 8 + 2);
  bool signalOk = true;

  bench.Builder.BuildingSignals2(0, CellsOf(frame, upper), signalOk);

  EXPECT_TRUE(signalOk);
  EXPECT_THAT(bench.Block.SignalValues2.Row(0), ElementsAre(100, 100, 100, 100, 1, 0, 0, 0));
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

class ForeignRow : public testing::TestWithParam<std::int32_t> {};

TEST_P(ForeignRow, IsLeftWithoutAMessage) {
  BuilderBench bench;
  bench.Block.Rebuild(10);

  EXPECT_FALSE(bench.Build(SvFrame().AllRaw(100000).Bytes(), GetParam()));
  bench.Build2(SvFrame().AllRaw(100000).Bytes(), GetParam());

  EXPECT_THAT(bench.Block.SignalValues.Cells(), Each(0));
  EXPECT_THAT(bench.Block.SignalValues2.Cells(), Each(0));
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(SignalBuilder, ForeignRow, testing::Values(-1, 10, 399, 100000));

TEST(SignalBuilder, LeavesSilentlyWhereTheArraysAreNotBuilt) {
  BuilderBench bench;
  bench.Block.Rebuild(0);

  EXPECT_FALSE(bench.Build(SvFrame().AllRaw(100000).Bytes()));

  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

// The count of the second stream has 16 bits with a sign.

TEST(SignalBuilder, KeepsTheOldCountOfTheSecondStreamFrom32768On) {
  BuilderBench bench;
  bench.Build2(SvFrame().Count(32767).AllRaw(1000).Bytes());
  ASSERT_EQ(bench.Block.SampleCount2(0), 32767);

  bench.Build2(SvFrame().Count(32768).AllRaw(2000).Bytes());

  EXPECT_EQ(bench.Block.SampleCount2(0), 32767);
  EXPECT_EQ(bench.Value2(0), 2);
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

}  // namespace
