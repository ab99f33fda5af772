// Two streams side by side, and the record rings.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::FrameBytes;
using support::PlainFrame;
using support::SvFrame;
using testing::ElementsAre;
using testing::IsEmpty;

FrameBytes First(int i) {
  return PlainFrame(i, "MU01");
}
FrameBytes Second(int i) {
  return PlainFrame(i, "MU02");
}

// Views look at the first stream alone.

TEST(SecondStream, FeedsNoView) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");

  bench.Receive(1000, Second);

  EXPECT_THAT(bench.Journal, IsEmpty());
  EXPECT_EQ(bench.State.BlockCount, 0);
  EXPECT_EQ(bench.State.BlockCount2, 0);
  EXPECT_EQ(bench.Block.SampleCount(1), 0);
  EXPECT_EQ(bench.Block.SampleCount2(1), 0);
}

TEST(SecondStream, TurnsTheWatchdogOffAndLeavesTheButtonsLocked) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");

  bench.Receive(Second(0));

  EXPECT_FALSE(bench.Main.Timer1.Enabled);
  EXPECT_FALSE(bench.Main.Timer3.Enabled);
}

TEST(SecondStream, RestartsTheFirstStreamsBlockWithItsFirstFrame) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Receive(150, First);

  bench.Receive(Second(0));
  bench.Receive(399, [](int i) { return First(1000 + i); });
  EXPECT_EQ(bench.State.BlockCount, 0);
  EXPECT_EQ(bench.Block.SampleCount(0), 1000);

  bench.Receive(First(1399));
  EXPECT_EQ(bench.State.BlockCount, 1);
}

TEST(SecondStream, LeavesTheFirstStreamsBlockAloneFromItsSecondFrameOn) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Receive(Second(0));

  bench.Receive(400, [&](int i) {
    bench.Receive(Second(i));
    return First(i);
  });

  EXPECT_EQ(bench.State.BlockCount, 1);
  EXPECT_EQ(bench.Block.SampleCount(399), 399);
}

TEST(SecondStream, LocatesItsOwnOffsets) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues", SvFrame("MU02").Tagged().Bytes());
  bench.Receive(First(0));

  bench.Receive(SvFrame("MU02").Tagged().Bytes());

  EXPECT_EQ(bench.State.ValueOffset[1], bench.State.ValueOffset[0] + 4);
}

TEST(SecondStream, SharesItsChannelCountWithTheFirst) {
  CaptureBench bench;
  const FrameBytes four = SvFrame("MU02").Channels(4).Trailer(FrameBytes(32)).Bytes();
  bench.RunWithLength("LookingForValues");
  bench.Receive(First(0));
  ASSERT_EQ(bench.Block.SignalValues.Row(0)[4], 0.01);

  bench.Receive(four);
  bench.Receive(First(0));
  bench.Receive(First(1));

  EXPECT_EQ(bench.State.ChannelCount, 4);
  EXPECT_EQ(bench.Block.SignalValues.Row(1)[0], 1);
  EXPECT_EQ(bench.Block.SignalValues.Row(1)[4], 0);
}

// A recording takes both streams.

class Recording : public testing::Test {
 protected:
  Recording() { bench.RunWithLength("LookingForRecording"); }

  int RingsWritten(int stream) const {
    return static_cast<int>(std::count(bench.Journal.begin(), bench.Journal.end(),
                                       "write ring " + std::to_string(stream)));
  }

  CaptureBench bench;
};

TEST_F(Recording, ExtractsAndStoresEachStreamOnItsOwnCounters) {
  bench.Receive(First(0));
  bench.Receive(Second(0));
  bench.Receive(3, [](int i) { return First(10 + i); });
  bench.Receive(2, [](int i) { return PlainFrame(20 + i, "MU02", 2000); });

  // The second stream's first frame set the first stream's row, but not its ring cell, to 0.
  EXPECT_EQ(bench.Block.SampleCount(0), 10);
  EXPECT_EQ(bench.Rings.RecordCount(0), 0);
  EXPECT_EQ(bench.Rings.RecordCount(1), 10);
  EXPECT_EQ(bench.Rings.RecordCount(3), 12);
  EXPECT_EQ(bench.Rings.RecordChannel[0](3), 1);
  EXPECT_EQ(bench.Block.SampleCount2(2), 21);
  EXPECT_EQ(bench.Rings.RecordCount2(2), 21);
  EXPECT_EQ(bench.Rings.RecordChannel2[0](2), 2);
}

TEST_F(Recording, WritesTheRingWithItsLastFrame) {
  bench.Receive(3999, First);
  EXPECT_EQ(RingsWritten(0), 0);

  bench.Receive(First(3999));

  EXPECT_EQ(RingsWritten(0), 1);
  EXPECT_EQ(bench.Rings.RecordCount(0), 0);
  EXPECT_EQ(bench.Rings.RecordCount(3999), 3999);
}

TEST_F(Recording, HandsTheWholeRingOver) {
  std::int32_t last = -1;
  ON_CALL(bench.Recorder, WriteRecordBlock(0)).WillByDefault([&](std::int16_t) {
    last = bench.Rings.RecordCount(3999);
  });

  bench.Receive(4000, First);

  EXPECT_EQ(last, 3999);
}

TEST_F(Recording, TakesAFrameThatComesWhileTheRingIsWrittenIntoTheNextOne) {
  ON_CALL(bench.Recorder, WriteRecordBlock(0)).WillByDefault([&](std::int16_t) {
    bench.Receive(First(3333));
  });

  bench.Receive(4000, First);
  EXPECT_EQ(bench.Block.SampleCount(0), 3333);
  EXPECT_EQ(bench.Rings.RecordCount(0), 3333);

  bench.Receive(First(1));
  EXPECT_EQ(bench.Block.SampleCount(1), 1);
  EXPECT_EQ(bench.Rings.RecordCount(1), 1);
}

TEST_F(Recording, TakesAFrameThatComesWhileTheSecondStreamsRingIsWrittenIntoTheNextOne) {
  ON_CALL(bench.Recorder, WriteRecordBlock(1)).WillByDefault([&](std::int16_t) {
    bench.Receive(Second(3333));
  });

  bench.Receive(4000, Second);
  EXPECT_EQ(bench.Block.SampleCount2(0), 3333);
  EXPECT_EQ(bench.Rings.RecordCount2(0), 3333);

  bench.Receive(Second(1));
  EXPECT_EQ(bench.Block.SampleCount2(1), 1);
  EXPECT_EQ(bench.Rings.RecordCount2(1), 1);
}

TEST_F(Recording, CountsNineBlocksARing) {
  bench.Receive(4000, First);
  EXPECT_EQ(bench.State.BlockCount, 9);

  bench.Receive(4000, First);
  EXPECT_EQ(bench.State.BlockCount, 18);
  EXPECT_EQ(RingsWritten(0), 2);
}

TEST_F(Recording, DoesNotPumpWhereTheRingIsFull) {
  bench.Receive(3999, First);
  const int before = bench.Events.Count();

  bench.Receive(First(3999));

  EXPECT_EQ(bench.Events.Count(), before);
}

TEST_F(Recording, BeginsTheNextRingAtCellAndRowZero) {
  bench.Receive(4001, [](int i) { return First(i % 4000 + 1); });

  EXPECT_EQ(bench.Rings.RecordCount(0), 1);
  EXPECT_EQ(bench.Rings.RecordCount(1), 2);
  EXPECT_EQ(bench.Block.SampleCount(0), 1);
}

TEST_F(Recording, DropsAnUnfinishedBlockWhereTheRingIsFull) {
  bench.Present.BaseSamples = 3000;
  bench.Block.Rebuild(3000);

  bench.Receive(4000 + 3000, First);

  // The 1000 rows behind the first block did not count for the second.
  EXPECT_EQ(bench.State.BlockCount, 2);
}

TEST_F(Recording, DoesNotLookAtTheFrameThatFillsTheRingForTheSecondStream) {
  bench.Settings.FilterContent = {"MU", "MU02"};
  bench.Receive(3999, First);

  bench.Receive(Second(7));
  EXPECT_EQ(RingsWritten(0), 1);
  EXPECT_FALSE(bench.State.OffsetsKnown[1]);

  bench.Receive(Second(8));
  EXPECT_TRUE(bench.State.OffsetsKnown[1]);
  EXPECT_EQ(bench.Rings.RecordCount2(0), 8);
}

TEST_F(Recording, FillsARingThroughBothStreamsOfAText) {
  bench.Settings.FilterContent = {"MU", "MU02"};

  bench.Receive(4000, Second);

  // Every frame but the one that filled the first ring went to the second stream too.
  EXPECT_EQ(RingsWritten(0), 1);
  EXPECT_EQ(RingsWritten(1), 0);
  EXPECT_EQ(bench.Rings.RecordCount2(3998), 3998);
}

TEST_F(Recording, LosesARowButNoCellWhenTheSecondStreamBegins) {
  bench.Receive(399, First);
  bench.Receive(Second(0));

  bench.Receive(4000 - 399, First);

  EXPECT_EQ(RingsWritten(0), 1);
  // 3601 frames behind the restart.
  EXPECT_EQ(bench.State.BlockCount, 9);
}

TEST_F(Recording, CountsNineBlocksARingOfTheSecondStream) {
  bench.Receive(4000, Second);

  EXPECT_EQ(RingsWritten(1), 1);
  EXPECT_EQ(RingsWritten(0), 0);
  EXPECT_EQ(bench.State.BlockCount2, 9);
  EXPECT_EQ(bench.State.BlockCount, 0);
}

TEST_F(Recording, WritesBothStreamsInTurn) {
  bench.Receive(4000, [&](int i) {
    bench.Receive(First(i));
    return Second(i);
  });

  std::vector<std::string> writes;
  for (const std::string& line : bench.Journal) {
    if (line.rfind("write", 0) == 0) writes.push_back(line);
  }
  EXPECT_THAT(writes, ElementsAre("write ring 0", "write ring 1"));
}

TEST_F(Recording, PumpsAtABlockOfTheSecondStreamAndShowsNoProgress) {
  bench.Receive(400, Second);

  EXPECT_THAT(bench.Journal, ElementsAre("pump"));
  EXPECT_EQ(bench.State.BlockCount2, 1);
  EXPECT_EQ(bench.Main.Label10[3].Caption, "0 s / 0 samples");
}

TEST_F(Recording, KeepsTheRowOfTheSecondStreamOverARestart) {
  bench.Receive(150, Second);
  bench.Acquisition.StartCapture("LookingForRecording");
  bench.Journal.clear();

  bench.Receive(249, [](int i) { return Second(1000 + i); });
  EXPECT_EQ(bench.State.BlockCount2, 0);
  EXPECT_EQ(bench.Block.SampleCount2(150), 1000);
  EXPECT_EQ(bench.Rings.RecordCount2(0), 1000);

  bench.Receive(Second(1249));
  EXPECT_EQ(bench.State.BlockCount2, 1);
}

TEST_F(Recording, StartsTheFirstStreamsRingAnewWithARestart) {
  bench.Receive(150, First);
  bench.Acquisition.StartCapture("LookingForRecording");

  bench.Receive(First(1000));

  EXPECT_EQ(bench.Rings.RecordCount(0), 1000);
  EXPECT_EQ(bench.Block.SampleCount(0), 1000);
}

TEST_F(Recording, StoresTheOldCountOfASecondStreamBeyond32767) {
  bench.Receive(Second(17));
  bench.Receive(399, Second);

  bench.Receive(PlainFrame(40000, "MU02", 3000));

  EXPECT_EQ(bench.Rings.RecordCount2(400), 17);
  EXPECT_EQ(bench.Rings.RecordChannel2[0](400), 3);
}

TEST_F(Recording, StoresACountOfTheFirstStreamBeyond32767) {
  bench.Receive(First(40000));

  EXPECT_EQ(bench.Rings.RecordCount(0), 40000);
}

TEST_F(Recording, FollowsTheUnitsInTheFirstStreamAlone) {
  bench.Present.CurrentUnitFactor = 1000;

  bench.Receive(PlainFrame(0, "MU01", 1500));
  bench.Receive(PlainFrame(0, "MU02", 1500));

  EXPECT_EQ(bench.Rings.RecordChannel[0](0), 1500);
  EXPECT_EQ(bench.Rings.RecordChannel2[0](0), 1.5);
}

}  // namespace
