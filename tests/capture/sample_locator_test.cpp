#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::CellsOf;
using support::FrameBytes;
using support::PlainFrame;
using support::SceneEnded;
using support::SvFrame;
using testing::ElementsAre;
using testing::IsEmpty;

/// A frame of `length` zero bytes; positions count from 1.
class Blank {
 public:
  explicit Blank(std::size_t length) : bytes_(length) {}
  Blank& Put(std::size_t position, std::uint8_t tag, std::uint8_t length) {
    bytes_.at(position - 1) = tag;
    bytes_.at(position) = length;
    return *this;
  }
  const FrameBytes& Bytes() const { return bytes_; }

 private:
  FrameBytes bytes_;
};

void Find(CaptureBench& bench, const FrameBytes& frame, std::size_t stream = 0) {
  bench.Locator.FindDataOffsets(CellsOf(frame), static_cast<std::int16_t>(frame.size()), stream);
}

/// 1-based position of a byte sequence in a frame, counted by the test itself.
std::int16_t PositionOf(const FrameBytes& sequence, const FrameBytes& frame) {
  const auto at = std::search(frame.begin(), frame.end(), sequence.begin(), sequence.end());
  return static_cast<std::int16_t>(at - frame.begin() + 1);
}

TEST(SampleLocator, KnowsNoOffsetsBeforeTheFirstScan) {
  CaptureBench bench;

  EXPECT_THAT(bench.State.SampleCountOffset, ElementsAre(0, 0));
  EXPECT_THAT(bench.State.ValueOffset, ElementsAre(0, 0));
  EXPECT_EQ(bench.State.ChannelCount, 0);
}

TEST(SampleLocator, FindsCountAndValuesOfAMergingUnit) {
  CaptureBench bench;
  const FrameBytes frame = SvFrame("MU01").Count(0x0ABC).Raw(0, 0x11223344).Bytes();

  Find(bench, frame);

  EXPECT_EQ(bench.State.SampleCountOffset[0], PositionOf({0x0A, 0xBC}, frame));
  EXPECT_EQ(bench.State.ValueOffset[0], PositionOf({0x11, 0x22, 0x33, 0x44}, frame));
  EXPECT_EQ(bench.State.ChannelCount, 8);
}

TEST(SampleLocator, FindsTheFieldsFourBytesLaterInATaggedFrame) {
  CaptureBench bench;
  Find(bench, SvFrame().Bytes());
  const auto count = bench.State.SampleCountOffset[0];
  const auto values = bench.State.ValueOffset[0];

  Find(bench, SvFrame().Tagged().Bytes());

  EXPECT_EQ(bench.State.SampleCountOffset[0], count + 4);
  EXPECT_EQ(bench.State.ValueOffset[0], values + 4);
}

TEST(SampleLocator, FindsAnEightChannelBlockAtTheEndOfTheFrame) {
  CaptureBench bench;
  // The length byte and 64 bytes of samples are all that follows the tag.
  Find(bench, Blank(100).Put(100 - 65, 0x87, 64).Bytes());

  EXPECT_EQ(bench.State.ValueOffset[0], 37);
  EXPECT_EQ(bench.State.ChannelCount, 8);
}

TEST(SampleLocator, LooksAtATag64BytesBeforeTheEnd) {
  CaptureBench bench;

  Find(bench, Blank(100).Put(36, 0x87, 32).Bytes());

  EXPECT_EQ(bench.State.ValueOffset[0], 38);
}

TEST(SampleLocator, DoesNotLookAtATag63BytesBeforeTheEnd) {
  CaptureBench bench;

  Find(bench, Blank(100).Put(37, 0x87, 32).Bytes());

  EXPECT_EQ(bench.State.ValueOffset[0], 0);
  EXPECT_EQ(bench.State.ChannelCount, 0);
}

TEST(SampleLocator, DoesNotFindAFourChannelBlockAtTheEndOfTheFrame) {
  CaptureBench bench;

  Find(bench, SvFrame().Channels(4).Bytes());

  EXPECT_EQ(bench.State.ValueOffset[0], 0);
  EXPECT_EQ(bench.State.ChannelCount, 0);
}

TEST(SampleLocator, FindsAFourChannelBlockWithEnoughBytesBehindIt) {
  CaptureBench bench;
  const FrameBytes frame = SvFrame().Channels(4).Raw(0, 0x11223344).Trailer(FrameBytes(31)).Bytes();

  Find(bench, frame);

  EXPECT_EQ(bench.State.ValueOffset[0], PositionOf({0x11, 0x22, 0x33, 0x44}, frame));
  EXPECT_EQ(bench.State.ChannelCount, 4);
}

TEST(SampleLocator, FindsTwelveChannels) {
  CaptureBench bench;
  const FrameBytes frame = SvFrame().Channels(12).Raw(0, 0x11223344).Bytes();

  Find(bench, frame);

  EXPECT_EQ(bench.State.ValueOffset[0], PositionOf({0x11, 0x22, 0x33, 0x44}, frame));
  EXPECT_EQ(bench.State.ChannelCount, 12);
}

TEST(SampleLocator, FindsNothingInAFrameOf64Bytes) {
  CaptureBench bench;

  Find(bench, Blank(64).Put(1, 0x82, 2).Put(3, 0x87, 64).Bytes());

  EXPECT_EQ(bench.State.SampleCountOffset[0], 0);
  EXPECT_EQ(bench.State.ValueOffset[0], 0);
}

TEST(SampleLocator, LooksAtOnePositionInAFrameOf65Bytes) {
  CaptureBench bench;

  Find(bench, Blank(65).Put(1, 0x82, 2).Put(3, 0x87, 64).Bytes());

  EXPECT_EQ(bench.State.SampleCountOffset[0], 3);
  EXPECT_EQ(bench.State.ValueOffset[0], 0);
}

TEST(SampleLocator, TakesTheExpectedLengthAndNotThatOfTheFrame) {
  CaptureBench bench;
  const FrameBytes frame = Blank(100).Put(36, 0x87, 32).Bytes();

  bench.Locator.FindDataOffsets(CellsOf(frame), 99, 0);

  EXPECT_EQ(bench.State.ValueOffset[0], 0);
}

TEST(SampleLocator, TakesTheLastMatchOfTheValues) {
  CaptureBench bench;

  Find(bench, Blank(200).Put(20, 0x87, 0x40).Put(50, 0x87, 0x40).Bytes());

  EXPECT_EQ(bench.State.ValueOffset[0], 52);
}

TEST(SampleLocator, TakesTheChannelsOfTheLastMatch) {
  CaptureBench bench;

  Find(bench, Blank(200).Put(20, 0x87, 64).Put(50, 0x87, 96).Put(80, 0x87, 32).Bytes());

  EXPECT_EQ(bench.State.ValueOffset[0], 82);
  EXPECT_EQ(bench.State.ChannelCount, 4);
}

TEST(SampleLocator, TakesTheLastMatchOfTheCount) {
  CaptureBench bench;

  Find(bench, Blank(200).Put(20, 0x82, 2).Put(50, 0x82, 2).Bytes());

  EXPECT_EQ(bench.State.SampleCountOffset[0], 52);
}

TEST(SampleLocator, IsMisledByTheTagsInTheFirstSamplesOfTwelveChannels) {
  CaptureBench bench;
  const FrameBytes frame = SvFrame().Channels(12).Raw(3, 0x00008740).Bytes();

  Find(bench, frame);

  EXPECT_EQ(bench.State.ValueOffset[0], PositionOf({0x00, 0x00, 0x87, 0x40}, frame) + 4);
  EXPECT_EQ(bench.State.ChannelCount, 8);
}

TEST(SampleLocator, IsNotMisledByTheTagsInTheSamplesOfEightChannels) {
  CaptureBench bench;
  SvFrame frame;
  frame.AllRaw(static_cast<std::int32_t>(0x82028740U)).Count(0x0ABC);

  Find(bench, frame.Bytes());

  EXPECT_EQ(bench.State.SampleCountOffset[0], PositionOf({0x0A, 0xBC}, frame.Bytes()));
  EXPECT_EQ(bench.State.ValueOffset[0], PositionOf({0x82, 0x02, 0x87, 0x40}, frame.Bytes()));
}

class OtherLength : public testing::TestWithParam<int> {};

TEST_P(OtherLength, KeepsTheOldValueOffset) {
  CaptureBench bench;
  Find(bench, Blank(200).Put(20, 0x87, 96).Bytes());

  Find(bench, Blank(200).Put(50, 0x87, static_cast<std::uint8_t>(GetParam())).Bytes());

  EXPECT_EQ(bench.State.ValueOffset[0], 22);
  EXPECT_EQ(bench.State.ChannelCount, 12);
}

INSTANTIATE_TEST_SUITE_P(SampleLocator, OtherLength,
                         testing::Values(0, 8, 31, 33, 40, 63, 65, 95, 97, 128, 0x81));

TEST(SampleLocator, DoesNotFindACountOfThreeBytes) {
  CaptureBench bench;
  Find(bench, Blank(200).Put(20, 0x82, 2).Bytes());

  Find(bench, Blank(200).Put(50, 0x82, 3).Bytes());

  EXPECT_EQ(bench.State.SampleCountOffset[0], 22);
}

TEST(SampleLocator, KeepsEverythingWhereAFrameHasNoTags) {
  CaptureBench bench;
  Find(bench, SvFrame().Bytes());
  const packetroutines::AcquisitionState before = bench.State;

  Find(bench, Blank(200).Bytes());

  EXPECT_EQ(bench.State.SampleCountOffset, before.SampleCountOffset);
  EXPECT_EQ(bench.State.ValueOffset, before.ValueOffset);
  EXPECT_EQ(bench.State.ChannelCount, before.ChannelCount);
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST(SampleLocator, KeepsTheOffsetsOfTheStreamsApart) {
  CaptureBench bench;

  Find(bench, Blank(200).Put(20, 0x82, 2).Put(30, 0x87, 64).Bytes(), 0);
  Find(bench, Blank(200).Put(40, 0x82, 2).Put(50, 0x87, 64).Bytes(), 1);

  EXPECT_THAT(bench.State.SampleCountOffset, ElementsAre(22, 42));
  EXPECT_THAT(bench.State.ValueOffset, ElementsAre(32, 52));
}

TEST(SampleLocator, SharesTheChannelCountBetweenTheStreams) {
  CaptureBench bench;
  Find(bench, SvFrame().Channels(8).Bytes(), 0);

  Find(bench, SvFrame().Channels(12).Bytes(), 1);

  EXPECT_EQ(bench.State.ChannelCount, 12);
}

TEST(SampleLocator, ReadsNoQuality) {
  CaptureBench bench;
  Find(bench, SvFrame().Bytes());
  const packetroutines::AcquisitionState before = bench.State;

  bench.Locator.FindQualitySettings(CellsOf(SvFrame().Tagged().Channels(12).Bytes()), 0);

  EXPECT_EQ(bench.State.SampleCountOffset, before.SampleCountOffset);
  EXPECT_EQ(bench.State.ValueOffset, before.ValueOffset);
  EXPECT_EQ(bench.State.ChannelCount, before.ChannelCount);
}

TEST(SampleLocator, ShowsAFailureAndTriesAgain) {
  CaptureBench bench;
  // The cells end before the scan does, and nothing changes that.
  const auto cells = CellsOf(Blank(30).Bytes());
  bench.Dialogs.WhileOpen = [&] {
    if (bench.Dialogs.Shown.size() == 3) throw SceneEnded();
  };

  EXPECT_THROW(bench.Locator.FindDataOffsets(cells, 100, 0), SceneEnded);

  const platform::Message first{"unknown exception",
                                "unknown error\r\nSubscript out of range\r\n"
                                "This happens while looking for data offsets",
                                platform::Icon::Critical, platform::Buttons::Ok};
  EXPECT_THAT(bench.Dialogs.Shown,
              ElementsAre(first, support::WithStop(first), support::WithStop(first)));
}

TEST(SampleLocator, LeavesTheScanAndEndsTheRunOnStop) {
  CaptureBench bench;
  const auto cells = CellsOf(Blank(30).Bytes());
  bench.Dialogs.Answers = {platform::Answer::Ok, platform::Answer::Stop};

  bench.Locator.FindDataOffsets(cells, 100, 0);

  EXPECT_THAT(bench.Journal,
              ElementsAre("box unknown exception", "box unknown exception", "tab change"));
}

/// A frame beside a stream whose frames are longer by some bytes: the run expects those.
void FindBesideLonger(CaptureBench& bench, const FrameBytes& frame, std::size_t longer) {
  const auto expected = static_cast<std::int16_t>(frame.size() + longer);
  bench.Locator.FindDataOffsets(CellsOf(frame, expected), expected, 0);
}

class BesideLonger : public testing::TestWithParam<std::size_t> {};

TEST_P(BesideLonger, IsNotMisledByTheTagsInTheSamplesOfEightChannels) {
  CaptureBench bench;
  SvFrame frame;
  frame.AllRaw(static_cast<std::int32_t>(0x82028740U)).Count(0x0ABC);

  FindBesideLonger(bench, frame.Bytes(), GetParam());

  EXPECT_EQ(bench.State.SampleCountOffset[0], PositionOf({0x0A, 0xBC}, frame.Bytes()));
  EXPECT_EQ(bench.State.ValueOffset[0], PositionOf({0x82, 0x02, 0x87, 0x40}, frame.Bytes()));
  EXPECT_EQ(bench.State.ChannelCount, 8);
}

TEST_P(BesideLonger, LocatesTenThousandRandomSamplesWhereTheirFrameHasThem) {
  CaptureBench bench;
  std::mt19937 random(1850);
  FrameBytes bytes = SvFrame().Bytes();
  int misled = 0;
  for (int i = 0; i < 10'000; ++i) {
    // Values and quality words of any kind.
    std::generate(bytes.end() - 64, bytes.end(),
                  [&] { return static_cast<std::uint8_t>(random()); });
    Find(bench, bytes);
    const auto count = bench.State.SampleCountOffset[0];
    const auto values = bench.State.ValueOffset[0];
    FindBesideLonger(bench, bytes, GetParam());
    if (bench.State.SampleCountOffset[0] != count || bench.State.ValueOffset[0] != values) ++misled;
  }
  EXPECT_EQ(misled, 0);
}

// A VLAN tag, and a longer ID with further fields.
INSTANTIATE_TEST_SUITE_P(SampleLocator, BesideLonger, testing::Values(4, 64));

TEST(SampleLocator, FindsAFourChannelBlockBesideALongerStream) {
  CaptureBench bench;
  const FrameBytes frame = SvFrame().Channels(4).Count(0x0ABC).Raw(0, 0x11223344).Bytes();

  FindBesideLonger(bench, frame, 31);

  EXPECT_EQ(bench.State.ValueOffset[0], PositionOf({0x11, 0x22, 0x33, 0x44}, frame));
  EXPECT_EQ(bench.State.SampleCountOffset[0], PositionOf({0x0A, 0xBC}, frame));
  EXPECT_EQ(bench.State.ChannelCount, 4);
}

TEST(SampleLocator, DoesNotFindAFourChannelBlockBesideAStreamThatIsTooLittleLonger) {
  CaptureBench bench;

  FindBesideLonger(bench, SvFrame().Channels(4).Bytes(), 30);

  EXPECT_EQ(bench.State.ValueOffset[0], 0);
}

TEST(SampleLocator, TakesTheLastMatchOfAShorterFrameToo) {
  CaptureBench bench;

  FindBesideLonger(bench, Blank(200).Put(20, 0x87, 0x40).Put(50, 0x87, 0x60).Bytes(), 64);

  EXPECT_EQ(bench.State.ValueOffset[0], 52);
  EXPECT_EQ(bench.State.ChannelCount, 12);
}

TEST(SampleLocator, KeepsTheOldCountWhereAShorterFrameHasNoneInFrontOfItsSamples) {
  CaptureBench bench;
  Find(bench, Blank(200).Put(30, 0x82, 2).Bytes());

  FindBesideLonger(bench, Blank(200).Put(50, 0x87, 0x40).Put(180, 0x82, 2).Bytes(), 64);

  EXPECT_EQ(bench.State.SampleCountOffset[0], 32);
  EXPECT_EQ(bench.State.ValueOffset[0], 52);
}

TEST(SampleLocator, FindsNothingInAShortFrameBesideALongerStreamWithoutTags) {
  CaptureBench bench;

  FindBesideLonger(bench, Blank(60).Bytes(), 100);

  EXPECT_EQ(bench.State.SampleCountOffset[0], 0);
  EXPECT_EQ(bench.State.ValueOffset[0], 0);
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST(SampleLocator, ScansTheFrameAtHandWhereItsBlockBeganARunWithLongerFrames) {
  CaptureBench bench;
  bench.Present.BaseSamples = 1;
  bench.Block.Rebuild(1);
  bench.Settings.FilterContent = {"MU01", "U01"};
  bench.RunWithLength("LookingForValues", PlainFrame(0));
  bench.Events.AtPump(1, [&] {
    bench.State.PacketLengthPending = true;
    // Longer than the cells that its own length frame leaves.
    bench.Receive(FrameBytes(700));
  });

  bench.Receive(PlainFrame(1));

  EXPECT_THAT(bench.Dialogs.Shown, testing::IsEmpty());
  EXPECT_TRUE(bench.State.OffsetsKnown[1]);
}

}  // namespace
