#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <map>
#include <regex>
#include <string>
#include <thread>

#include "live/network_interface_scene.h"
#include "live/publisher.h"
#include "live/wire.h"

namespace {

using live::NetworkInterfaceScene;
using live::Numbered;
using live::RecordingBuffer;
using live::ViewBuffer;
using std::chrono_literals::operator""ms;

class Ring : public NetworkInterfaceScene {
 protected:
  /// Longer than a usual frame, so that a frame of the longest usual size passes with all its
  /// bytes.
  static constexpr int RoomyMtu = 1600;
  static constexpr std::size_t LongestFrame = 1522;

  void SetUp() override {
    NetworkInterfaceScene::SetUp();
    if (IsSkipped()) return;
    live::CutWire();
    live::LayWire(RoomyMtu);
  }

  void HoldsWhileNobodyReads(std::int32_t buffer, std::uint32_t frameCount) {
    live::Sender sender;
    source_.Prepare(Settings("", buffer));
    source_.Start();
    for (std::uint32_t i = 0; i < frameCount; ++i) sender.Send(Numbered(i, LongestFrame));
    const auto frames = ReadAll();
    ASSERT_EQ(frames.size(), frameCount);
    for (std::uint32_t i = 0; i < frameCount; ++i) {
      ASSERT_EQ(frames[i], Numbered(i, LongestFrame));
    }
    EXPECT_EQ(source_.Counters().Dropped, 0U);
  }
};

TEST_F(Ring, HoldsTwoThousandWholeFramesForAView) {
  HoldsWhileNobodyReads(ViewBuffer, 2048);
}

TEST_F(Ring, HoldsThirtyTwoThousandWholeFramesForARecording) {
  HoldsWhileNobodyReads(RecordingBuffer, 32768);
}

TEST_F(Ring, HandsOverWhatHasArrivedAndNoMore) {
  live::Sender sender;
  source_.Prepare(Settings("", RecordingBuffer));
  source_.Start();
  for (std::uint32_t i = 0; i < 500; ++i) sender.Send(Numbered(i));
  std::this_thread::sleep_for(10ms);
  source_.TakeNoMore();
  std::this_thread::sleep_for(10ms);
  for (std::uint32_t i = 500; i < 600; ++i) sender.Send(Numbered(i));
  const auto frames = ReadAll();
  ASSERT_EQ(frames.size(), 500U);
  for (std::uint32_t i = 0; i < 500; ++i) ASSERT_EQ(frames[i], Numbered(i));
  source_.Stop();
  source_.Start();
  sender.Send(Numbered(7));
  EXPECT_EQ(ReadAll().size(), 1U) << "a start takes what comes";
}

TEST_F(Ring, CountsWhatNoLongerFits) {
  live::Sender sender;
  source_.Prepare(Settings());
  source_.Start();
  for (std::uint32_t i = 0; i < 6000; ++i) sender.Send(Numbered(i));
  const std::size_t read = ReadAll().size();
  EXPECT_LT(read, 6000U);
  EXPECT_EQ(read + source_.Counters().Dropped, 6000U);
}

TEST_F(Ring, TakesNoMoreThan64MebibytesForARecording) {
  source_.Prepare(Settings("", RecordingBuffer));
  const std::string sockets = live::Run("ss --packet --extended --numeric");
  std::smatch found;
  if (!std::regex_search(sockets, found, std::regex("blk_size:(\\d+),blk_nr:(\\d+)"))) {
    GTEST_SKIP() << "the system does not tell the size of a ring: " << sockets;
  }
  EXPECT_LE(std::stoull(found[1]) * std::stoull(found[2]), 64U * 1024U * 1024U) << sockets;
}

TEST_F(Ring, HandsOverALongerFrameWithItsTrueLength) {
  live::Run("ip link set " + live::NearEnd + " mtu 9000; ip link set " + live::FarEnd +
            " mtu 9000");
  source_.Prepare(Settings());
  source_.Start();
  live::Sender().Send(Numbered(1, 4000));
  std::this_thread::sleep_for(20ms);
  const auto frame = source_.Next();
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->Length, 4000U);
  EXPECT_EQ(frame->Bytes.size(), LongestFrame);
}

/// Two streams of a publisher, one with a tag and one without, and a reader that stalls.
class TwoStreams : public NetworkInterfaceScene {
 protected:
  struct Seen {
    std::size_t Count = 0;
    std::size_t Jumps = 0;
    int Last = -1;
  };

  void Take(const platform::CapturedFrame& frame) {
    const std::string text(frame.Bytes.begin(), frame.Bytes.end());
    for (const std::string id : {"LIVE-TAGGED", "LIVE-PLAIN"}) {
      const std::size_t at = text.find(id);
      if (at == std::string::npos) continue;
      const std::size_t countAt = at + id.size() + 2;
      const int count = frame.Bytes[countAt] << 8 | frame.Bytes[countAt + 1];
      Seen& seen = seen_[id];
      if (seen.Last >= 0 && count != (seen.Last + 1) % 4000) ++seen.Jumps;
      seen.Last = count;
      ++seen.Count;
    }
  }

  /// Reads until the publisher has sent everything. Returns false where the machine held this
  /// reader up for longer than it meant to stall, so that nothing can be said of the buffer.
  bool ReadWhileStalling(std::int32_t buffer, std::chrono::milliseconds stall,
                         std::chrono::milliseconds between, int seconds) {
    using Clock = std::chrono::steady_clock;
    seen_.clear();
    source_.Prepare(Settings("", buffer));
    source_.Start();
    droppedBefore_ = source_.Counters().Dropped;
    live::Publisher publisher("--duration " + std::to_string(seconds) +
                              " --stream id=LIVE-TAGGED,tag=4:0 --stream id=LIVE-PLAIN");
    auto nextStall = Clock::now() + between;
    auto lastRead = Clock::now();
    Clock::duration longest{};
    while (!publisher.HasFinished()) {
      longest = std::max(longest, Clock::now() - lastRead);
      while (const auto frame = source_.Next()) Take(*frame);
      lastRead = Clock::now();
      std::this_thread::sleep_for(1ms);
      if (Clock::now() < nextStall) continue;
      std::this_thread::sleep_for(stall);
      nextStall = Clock::now() + between;
    }
    std::this_thread::sleep_for(100ms);
    while (const auto frame = source_.Next()) Take(*frame);
    sent_ = publisher.Sent();
    return longest <= stall + 100ms;
  }

  void ExpectNothingLost(int seconds) {
    const std::string count = std::to_string(4000 * seconds);
    EXPECT_EQ(sent_, "{\"LIVE-TAGGED\": " + count + ", \"LIVE-PLAIN\": " + count + "}\n");
    for (const std::string id : {"LIVE-TAGGED", "LIVE-PLAIN"}) {
      EXPECT_EQ(seen_[id].Count, 4000U * static_cast<unsigned>(seconds)) << id;
      EXPECT_EQ(seen_[id].Jumps, 0U) << id;
    }
    EXPECT_EQ(source_.Counters().Dropped, droppedBefore_);
  }

  std::map<std::string, Seen> seen_;
  std::string sent_;
  std::uint64_t droppedBefore_ = 0;
};

TEST_F(TwoStreams, LoseNothingInAViewThatStallsForATenthOfASecond) {
  for (int attempt = 0; attempt < 3; ++attempt) {
    if (ReadWhileStalling(ViewBuffer, 100ms, 300ms, 3)) return ExpectNothingLost(3);
  }
  GTEST_SKIP() << "this machine held the reader up again and again";
}

TEST_F(TwoStreams, LoseNothingInARecordingThatStallsForTwoSeconds) {
  for (int attempt = 0; attempt < 3; ++attempt) {
    if (ReadWhileStalling(RecordingBuffer, 2000ms, 500ms, 5)) return ExpectNothingLost(5);
  }
  GTEST_SKIP() << "this machine held the reader up again and again";
}

}  // namespace
