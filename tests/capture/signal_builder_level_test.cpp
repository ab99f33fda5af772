// The silence of a block, the real-time value and the record rings.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>

#include "support/capture_bench.h"
#include "support/failures.h"

namespace {

using support::CaptureBench;
using support::CellsOf;
using support::FailureOf;
using support::FrameBytes;
using support::SvFrame;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t LastRow = 399;

class LevelBench : public CaptureBench {
 public:
  LevelBench() {
    const FrameBytes frame = SvFrame().Bytes();
    Locator.FindDataOffsets(CellsOf(frame), static_cast<std::int16_t>(frame.size()), 0);
  }
  bool Build(const SvFrame& frame, std::int32_t row = LastRow) {
    bool signalOk = false;
    Builder.BuildingSignals(row, CellsOf(frame.Bytes()), signalOk);
    return signalOk;
  }
};

TEST(SilentBlock, IsOneOfZeros) {
  LevelBench bench;

  EXPECT_FALSE(bench.Build(SvFrame()));
}

TEST(SilentBlock, StaysBelowATenth) {
  LevelBench bench;

  EXPECT_FALSE(bench.Build(SvFrame().Raw(0, 99).Raw(4, 9999)));
}

struct Level {
  std::size_t Channel;
  std::int32_t Raw;
  friend void PrintTo(const Level& level, std::ostream* out) {
    *out << "raw " << level.Raw << " on channel " << level.Channel;
  }
};

class ATenth : public testing::TestWithParam<Level> {};

TEST_P(ATenth, IsASignal) {
  LevelBench bench;

  EXPECT_TRUE(bench.Build(SvFrame().Raw(GetParam().Channel, GetParam().Raw)));
}

INSTANTIATE_TEST_SUITE_P(SilentBlock, ATenth,
                         testing::Values(Level{0, 100}, Level{3, -100}, Level{4, 10000},
                                         Level{7, -10000}));

TEST(SilentBlock, IsJudgedInTheChosenUnits) {
  LevelBench bench;
  bench.Present.CurrentUnitFactor = 1000;

  EXPECT_TRUE(bench.Build(SvFrame().Raw(0, 1)));
}

TEST(SilentBlock, IsJudgedByAllItsRows) {
  LevelBench bench;
  bench.Build(SvFrame().Raw(2, 100), 17);

  EXPECT_TRUE(bench.Build(SvFrame()));
}

TEST(SilentBlock, IsJudgedByTheStaleVoltagesOfFourChannelsToo) {
  LevelBench bench;
  bench.Build(SvFrame().Raw(4, 10000));
  bench.State.ChannelCount = 4;

  EXPECT_TRUE(bench.Build(SvFrame()));
}

TEST(SilentBlock, IsNoBalancedSine) {
  LevelBench bench;
  bool signalOk = false;
  for (int row = 0; row <= LastRow; ++row) {
    SvFrame frame;
    frame.Raw(0, row % 2 == 0 ? 5000 : -5000);
    signalOk = bench.Build(frame, row);
  }

  EXPECT_TRUE(signalOk);
}

// The real-time value.

TEST(RealTimeValue, ShowsTheAcEstimateOfTheChosenColumn) {
  LevelBench bench;
  bench.State.LookingForValues = true;
  bench.State.RealTimeMode = true;
  bench.State.RealTimeChannel = 6;
  for (int row = 0; row < 400; ++row) {
    bench.Build(SvFrame().Raw(5, row % 2 == 0 ? 300000 : 100000), row);
  }

  EXPECT_DOUBLE_EQ(bench.State.RmsValues[5], 1);
  EXPECT_EQ(bench.Main.Label5[5].Caption, "1.00");
}

TEST(RealTimeValue, ChangesWithEveryFrameOverTheWholeBlock) {
  LevelBench bench;
  bench.State.LookingForValues = true;
  bench.State.RealTimeMode = true;
  bench.Block.Rebuild(4);
  bench.Present.BaseSamples = 4;

  bench.Build(SvFrame().Raw(0, 4000), 1);
  EXPECT_EQ(bench.Main.Label5[0].Caption, "1.73");
  bench.Build(SvFrame().Raw(0, 4000), 2);
  EXPECT_EQ(bench.Main.Label5[0].Caption, "2.00");
}

TEST(RealTimeValue, LeavesTheOtherLabelsAlone) {
  LevelBench bench;
  bench.State.LookingForValues = true;
  bench.State.RealTimeMode = true;
  bench.State.RealTimeChannel = 8;
  for (auto& label : bench.Main.Label5) label.Caption = "old";

  bench.Build(SvFrame().AllRaw(1000));

  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(bench.Main.Label5[i].Caption, "old") << i;
  EXPECT_NE(bench.Main.Label5[7].Caption, "old");
}

TEST(RealTimeValue, IsShownForASilentBlockToo) {
  LevelBench bench;
  bench.State.LookingForValues = true;
  bench.State.RealTimeMode = true;

  EXPECT_FALSE(bench.Build(SvFrame()));

  EXPECT_EQ(bench.Main.Label5[0].Caption, "0.00");
}

TEST(RealTimeValue, NeedsTheValuesMode) {
  LevelBench bench;
  bench.State.LookingForScope = true;
  bench.State.RealTimeMode = true;

  bench.Build(SvFrame().AllRaw(1000));

  EXPECT_EQ(bench.Main.Label5[0].Caption, "");
}

TEST(RealTimeValue, NeedsTheCheckBox) {
  LevelBench bench;
  bench.State.LookingForValues = true;

  bench.Build(SvFrame().AllRaw(1000));

  EXPECT_EQ(bench.Main.Label5[0].Caption, "");
}

TEST(RealTimeValue, IsNotShownWhereTheRowFailed) {
  LevelBench bench;
  bench.State.LookingForValues = true;
  bench.State.RealTimeMode = true;

  bench.Build(SvFrame().AllRaw(1000), 400);

  EXPECT_EQ(bench.Main.Label5[0].Caption, "");
}

TEST(SignalBuilder, ShowsAnyOtherFailureAndTriesAgain) {
  LevelBench bench;
  bench.State.LookingForValues = true;
  bench.State.RealTimeMode = true;
  int writes = 0;
  bench.Main.Label5[0].Caption.OnAssign([&](const std::string&) {
    if (++writes < 3) throw platform::Failure(6);
  });

  EXPECT_TRUE(bench.Build(SvFrame().AllRaw(1000)));

  const platform::Message first{"unknown...",
                                "unknown error in 'BuildingSignals'\r\nOverflow\r\n"
                                "this happens while building signals",
                                platform::Icon::Critical, platform::Buttons::Ok};
  EXPECT_THAT(bench.Dialogs.Shown, ElementsAre(first, support::WithStop(first)));
  EXPECT_EQ(writes, 3);
}

TEST(SignalBuilder, SkipsTheStepAndEndsTheRunOnStop) {
  LevelBench bench;
  bench.State.LookingForValues = true;
  bench.State.RealTimeMode = true;
  bench.Main.Label5[0].Caption.OnAssign([](const std::string&) { throw platform::Failure(6); });
  bench.Dialogs.Answers = {platform::Answer::Ok, platform::Answer::Stop};

  EXPECT_TRUE(bench.Build(SvFrame().AllRaw(1000)));

  EXPECT_EQ(bench.Dialogs.Shown.size(), 2U);
  EXPECT_EQ(bench.Journal.back(), "tab change");
}

TEST(SignalBuilder, ReadsNoCounterWhereNoneWasEverFound) {
  CaptureBench bench;
  const auto cells = CellsOf(FrameBytes(100, 0x5A));
  bool signalOk = true;

  bench.Builder.BuildingSignals(0, cells, signalOk);
  bench.Builder.BuildingSignals2(0, cells, signalOk);

  EXPECT_EQ(bench.Block.SampleCount(0), 0);
  EXPECT_EQ(bench.Block.SampleCount2(0), 0);
}

// The record rings.

constexpr std::array<double, 8> RowValues{1.5, 3, 4.5, 6, -7.5, -9, -10.5, -12};

TEST(RecordRings, TakeARowOfTheFirstStream) {
  CaptureBench bench;
  bench.Block.SampleCount(5) = 65535;
  std::copy(RowValues.begin(), RowValues.end(), bench.Block.SignalValues.Row(5).begin());

  bench.Builder.StoreRecordSample(3999, 5);

  EXPECT_EQ(bench.Rings.RecordCount(3999), 65535);
  EXPECT_EQ(bench.Rings.RecordCount2(3999), 0);
  for (std::size_t k = 0; k < 8; ++k) {
    EXPECT_EQ(bench.Rings.RecordChannel[k](3999), RowValues[k]) << k;
    EXPECT_EQ(bench.Rings.RecordChannel2[k](3999), 0) << k;
  }
}

TEST(RecordRings, TakeARowOfTheSecondStream) {
  CaptureBench bench;
  bench.Block.SampleCount2(5) = 32767;
  std::copy(RowValues.begin(), RowValues.end(), bench.Block.SignalValues2.Row(5).begin());

  bench.Builder.StoreRecordSample2(0, 5);

  EXPECT_EQ(bench.Rings.RecordCount2(0), 32767);
  EXPECT_EQ(bench.Rings.RecordCount(0), 0);
  for (std::size_t k = 0; k < 8; ++k) {
    EXPECT_EQ(bench.Rings.RecordChannel2[k](0), RowValues[k]) << k;
    EXPECT_EQ(bench.Rings.RecordChannel[k](0), 0) << k;
  }
}

TEST(RecordRings, DoNotGrowBeyondTheirLargestSize) {
  CaptureBench bench;
  using packetroutines::RecordRings;

  EXPECT_EQ(FailureOf([&] { bench.Rings.Reserve(RecordRings::MaximumCells + 1); }),
            platform::failure::OutOfMemory);

  for (const auto& ring : bench.Rings.RecordChannel) EXPECT_EQ(ring.Count(), RecordRings::Cells);
}

TEST(RecordRings, LetTheirFailuresThrough) {
  CaptureBench bench;

  EXPECT_EQ(FailureOf([&] { bench.Builder.StoreRecordSample(0, 400); }), 9);
  EXPECT_EQ(FailureOf([&] { bench.Builder.StoreRecordSample2(0, 400); }), 9);
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

}  // namespace
