#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "live/publisher.h"
#include "live/wire.h"

namespace {

using live::Publisher;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;
using Steady = std::chrono::steady_clock;

/// Two publishers of streams of different length, and the capture object that listens to both. Each
/// publisher keeps its own time, so that it is chance whose frame comes first after a start.
class FirstFramesOfTheWire : public ::testing::Test {
 protected:
  static constexpr const char* Short = "SHORT";
  static constexpr const char* Long = "LONG-ENOUGH";

  struct TakenFrame {
    std::string Stream;
    std::size_t Length;
  };

  void SetUp() override {
    const std::string reason = live::WhyNoWire();
    if (!reason.empty()) GTEST_SKIP() << reason;
    live::LayWire();
    object_ = layer_.NewCaptureObject();
    object_->OnPacket = [this](const platform::CapturedFrame& frame) {
      EXPECT_EQ(frame.Bytes.size(), frame.Length);
      const std::string text(frame.Bytes.begin(), frame.Bytes.end());
      const bool isLong = text.find(Long) != std::string::npos;
      EXPECT_TRUE(isLong || text.find(Short) != std::string::npos);
      taken_.push_back({isLong ? Long : Short, frame.Length});
    };
  }
  void TearDown() override {
    object_.reset();
    if (live::WhyNoWire().empty()) live::CutWire();
  }

  void SetUpAdapter() {
    platform::CaptureAdapter& adapter = object_->Adapters(2);
    object_->SetAdapter(adapter);
    adapter.Set("HWFilter", platform::PromiscuousReception);
    adapter.Set("BPFilter", std::string("ether proto 0x88ba"));
  }
  /// Takes frames as they come, `most` of them, or fewer where they do not come.
  void Take(std::size_t most) {
    taken_.clear();
    const auto end = Steady::now() + 2s;
    while (taken_.size() < most && Steady::now() < end) {
      if (!layer_.DeliverOne()) std::this_thread::sleep_for(1ms);
    }
  }
  std::set<std::string> StreamsTaken() const {
    std::set<std::string> streams;
    for (const TakenFrame& frame : taken_) streams.insert(frame.Stream);
    return streams;
  }
  /// Waits until both publishers are heard.
  void WaitForBoth() {
    SetUpAdapter();
    for (int attempt = 0; attempt < 20; ++attempt) {
      object_->Start();
      Take(800);
      object_->Stop();
      if (StreamsTaken().size() == 2) return;
    }
    FAIL() << "the publishers are not heard";
  }

  adapters::SteadyClock clock_;
  adapters::SystemCaptureLayer layer_{clock_, {}, [] {
                                        return std::vector<adapters::NetworkInterface>{
                                            {live::NearEnd, "the wire", adapters::Reach::Ready}};
                                      }};
  std::unique_ptr<platform::CaptureObject> object_;
  std::vector<TakenFrame> taken_;
};

TEST_F(FirstFramesOfTheWire, BeginEachRunWithTheLongest) {
  const Publisher first(std::string("--duration 20 --stream id=") + Short);
  const Publisher second(std::string("--duration 20 --stream tag=4:0,id=") + Long);
  WaitForBoth();
  for (int run = 0; run < 10; ++run) {
    SetUpAdapter();
    object_->Start();
    Take(1000);
    object_->Stop();
    ASSERT_EQ(taken_.size(), 1000U);
    EXPECT_EQ(taken_[0].Stream, Long) << run;
    EXPECT_EQ(StreamsTaken().size(), 2U) << run;
    for (const TakenFrame& frame : taken_) ASSERT_LE(frame.Length, taken_[0].Length) << run;
  }
}

TEST_F(FirstFramesOfTheWire, LeaveBothStreamsToAReaderOfOneFrameAStart) {
  const Publisher first(std::string("--duration 20 --stream id=") + Short);
  const Publisher second(std::string("--duration 20 --stream tag=4:0,id=") + Long);
  WaitForBoth();
  SetUpAdapter();
  object_->Start();
  Take(1);
  const std::size_t expected = taken_.at(0).Length;
  EXPECT_EQ(taken_.at(0).Stream, Long);
  std::set<std::string> met;
  for (int restart = 0; restart < 400 && met.size() < 2; ++restart) {
    object_->Stop();
    std::this_thread::sleep_for(5ms);
    object_->Start();
    Take(1);
    ASSERT_EQ(taken_.size(), 1U);
    EXPECT_LE(taken_[0].Length, expected);
    met.insert(taken_[0].Stream);
  }
  EXPECT_EQ(met.size(), 2U);
}

TEST_F(FirstFramesOfTheWire, MeetTheStreamThatIsWantedAtEachStart) {
  const Publisher first(std::string("--duration 20 --stream id=") + Short);
  const Publisher second(std::string("--duration 20 --stream tag=4:0,id=") + Long);
  WaitForBoth();
  std::string wanted;
  object_->SetWish([&](const platform::CapturedFrame& frame) {
    const std::string text(frame.Bytes.begin(), frame.Bytes.end());
    return text.find(wanted) == std::string::npos ? platform::Wanted::No : platform::Wanted::Most;
  });
  SetUpAdapter();
  wanted = Short;
  object_->Start();
  Take(2);
  ASSERT_EQ(taken_.size(), 2U);
  EXPECT_EQ(taken_[0].Stream, Long);
  EXPECT_EQ(taken_[1].Stream, Short);
  for (int restart = 0; restart < 40; ++restart) {
    object_->Stop();
    wanted = restart % 2 == 0 ? Long : Short;
    object_->Start();
    Take(1);
    ASSERT_EQ(taken_.size(), 1U);
    EXPECT_EQ(taken_[0].Stream, wanted) << restart;
  }
}

}  // namespace
