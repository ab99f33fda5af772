#include "adapters/capture_channel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "adapters/hand_clock.h"
#include "base/failure.h"
#include "support/failures.h"

namespace {

using adapters::SourceSettings;
using platform::CapturedFrame;
using platform::Failure;
using support::FailureOf;
namespace failure = platform::failure;

using Bytes = std::vector<std::uint8_t>;

/// A source whose frames all lie in one buffer, so that a frame is gone as soon as the next is
/// asked for.
class ScriptedSource : public adapters::FrameSource {
 public:
  void Prepare(const SourceSettings& settings) override { Settings = settings; }
  void Start() override {
    if (StartFailure != 0) throw Failure(StartFailure);
    Log += "start ";
  }
  void Stop() override { Log += "stop "; }
  void TakeNoMore() override { Log += "no more "; }
  void Release() override { Log += "release "; }
  std::optional<CapturedFrame> Next() override {
    if (Refused > 0) {
      const int lookedAt = std::min(Refused, 4096);
      Refused -= lookedAt;
      lookedAtAll_ = lookedAt < 4096;
      return std::nullopt;
    }
    lookedAtAll_ = true;
    if (Count == 0) return std::nullopt;
    --Count;
    buffer_.assign(100, ++Mark);
    return CapturedFrame{buffer_, 1000};
  }

  bool LookedAtAll() const override { return lookedAtAll_; }

  SourceSettings Settings;
  std::int32_t StartFailure = 0;
  /// Frames in front of the others, which the filter refuses.
  int Refused = 0;
  int Count = 0;
  std::uint8_t Mark = 0;
  std::string Log;

 private:
  Bytes buffer_;
  bool lookedAtAll_ = true;
};

class CaptureChannel : public ::testing::Test {
 protected:
  CaptureChannel() {
    std::vector<std::unique_ptr<adapters::SourceAdapter>> adapters;
    for (ScriptedSource*& source : sources_) {
      auto owned = std::make_unique<ScriptedSource>();
      source = owned.get();
      adapters.push_back(
          std::make_unique<adapters::SourceAdapter>("a source", true, std::move(owned), clock_));
    }
    link_->RunningChanged = [this](bool running) { changes_.push_back(running); };
    channel_ = std::make_unique<adapters::CaptureChannel>(std::move(adapters), link_);
    channel_->SetAdapter(channel_->Adapters(1));
  }

  adapter_tests::HandClock clock_;
  std::array<ScriptedSource*, 2> sources_{};
  std::vector<bool> changes_;
  std::shared_ptr<adapters::ChannelLink> link_ = std::make_shared<adapters::ChannelLink>();
  std::unique_ptr<adapters::CaptureChannel> channel_;
};

TEST_F(CaptureChannel, DeliversAtOnceWhatHasArrived) {
  int frames = 0;
  channel_->OnPacket = [&](const CapturedFrame&) { ++frames; };
  channel_->DeliverArrived();
  EXPECT_EQ(sources_[0]->Log, "") << "nothing runs yet";
  channel_->Start();
  sources_[0]->Count = 5;
  clock_.Time += std::chrono::seconds(1);
  channel_->DeliverArrived();
  EXPECT_EQ(frames, 5);
  EXPECT_EQ(sources_[0]->Log, "start no more ");
}

TEST_F(CaptureChannel, DeliversWhatHasArrivedBehindManyThatTheFilterRefuses) {
  int frames = 0;
  channel_->OnPacket = [&](const CapturedFrame&) { ++frames; };
  channel_->Start();
  sources_[0]->Refused = 3 * 4096;
  sources_[0]->Count = 5;
  EXPECT_FALSE(channel_->DeliverOne()) << "a turn looks at a bounded number";
  channel_->DeliverArrived();
  EXPECT_EQ(frames, 5);
}

TEST_F(CaptureChannel, TellsTheSourceWhatIsWanted) {
  Bytes marks;
  channel_->OnPacket = [&](const CapturedFrame& frame) {
    marks.push_back(frame.Bytes[0]);
    channel_->Stop();
  };
  channel_->SetWish([](const CapturedFrame& frame) {
    return frame.Bytes[0] == 3 ? platform::Wanted::Most : platform::Wanted::No;
  });
  sources_[0]->Count = 5;
  channel_->Start();
  EXPECT_TRUE(channel_->DeliverOne());
  channel_->SetWish({});
  channel_->Start();
  EXPECT_TRUE(channel_->DeliverOne());
  EXPECT_EQ(marks, Bytes({3, 4}));
}

TEST_F(CaptureChannel, DeliversNothingMoreBehindAStopWithinAnEvent) {
  int frames = 0;
  channel_->OnPacket = [&](const CapturedFrame&) {
    if (++frames == 2) channel_->Stop();
  };
  channel_->Start();
  sources_[0]->Count = 5;
  channel_->DeliverArrived();
  EXPECT_EQ(frames, 2);
}

TEST_F(CaptureChannel, LeavesTheFramesOfANewDeliveryToThatOne) {
  int frames = 0;
  channel_->OnPacket = [&](const CapturedFrame&) {
    if (++frames != 2) return;
    channel_->Stop();
    channel_->Start();
  };
  channel_->Start();
  sources_[0]->Count = 5;
  channel_->DeliverArrived();
  EXPECT_EQ(frames, 2);
  EXPECT_TRUE(changes_.back()) << "what began anew runs on";
}

TEST_F(CaptureChannel, DeliversOneFrameACall) {
  Bytes marks;
  channel_->OnPacket = [&](const CapturedFrame& frame) {
    marks.push_back(frame.Bytes[0]);
    EXPECT_EQ(frame.Bytes.size(), 100U);
    EXPECT_EQ(frame.Length, 1000U);
  };
  sources_[0]->Count = 2;
  channel_->Start();
  EXPECT_TRUE(channel_->DeliverOne());
  EXPECT_EQ(marks, Bytes({1}));
  EXPECT_TRUE(channel_->DeliverOne());
  EXPECT_FALSE(channel_->DeliverOne());
  EXPECT_EQ(marks, Bytes({1, 2}));
}

TEST_F(CaptureChannel, DeliversNothingBeforeAStartAndAfterAStop) {
  sources_[0]->Count = 5;
  EXPECT_FALSE(channel_->DeliverOne());
  channel_->Start();
  channel_->Stop();
  EXPECT_FALSE(channel_->DeliverOne());
  EXPECT_EQ(sources_[0]->Count, 5);
}

TEST_F(CaptureChannel, KeepsAFrameWhileItsHandlerPumpsFurtherFrames) {
  sources_[0]->Count = 4;
  int depth = 0;
  channel_->OnPacket = [&](const CapturedFrame& frame) {
    const Bytes before(frame.Bytes.begin(), frame.Bytes.end());
    ++depth;
    EXPECT_EQ(channel_->DeliverOne(), depth < 4);
    --depth;
    EXPECT_EQ(Bytes(frame.Bytes.begin(), frame.Bytes.end()), before);
  };
  channel_->Start();
  EXPECT_TRUE(channel_->DeliverOne());
  EXPECT_EQ(sources_[0]->Mark, 4);
}

TEST_F(CaptureChannel, KeepsAFrameWhileItsHandlerStopsAndStarts) {
  sources_[0]->Count = 2;
  channel_->OnPacket = [&](const CapturedFrame& frame) {
    channel_->Stop();
    EXPECT_FALSE(channel_->DeliverOne());
    channel_->Start();
    EXPECT_EQ(channel_->DeliverOne(), frame.Bytes[0] == 1);
    EXPECT_EQ(frame.Bytes[99], frame.Bytes[0]);
  };
  channel_->Start();
  EXPECT_TRUE(channel_->DeliverOne());
  EXPECT_EQ(sources_[0]->Mark, 2);
}

TEST_F(CaptureChannel, GoesOnAfterAHandlerThatFailed) {
  sources_[0]->Count = 2;
  Bytes marks;
  channel_->OnPacket = [&](const CapturedFrame& frame) {
    marks.push_back(frame.Bytes[0]);
    if (marks.size() == 1) throw std::runtime_error("handler");
  };
  channel_->Start();
  EXPECT_THROW(channel_->DeliverOne(), std::runtime_error);
  EXPECT_TRUE(channel_->DeliverOne());
  EXPECT_EQ(marks, Bytes({1, 2}));
}

TEST_F(CaptureChannel, UsesTheSameMemoryForFrameAfterFrame) {
  sources_[0]->Count = 3;
  std::vector<const std::uint8_t*> places;
  channel_->OnPacket = [&](const CapturedFrame& frame) { places.push_back(frame.Bytes.data()); };
  channel_->Start();
  while (channel_->DeliverOne()) {
  }
  EXPECT_EQ(places, std::vector(3, places.at(0)));
}

TEST_F(CaptureChannel, TellsWhenDeliveryBeginsAndEnds) {
  channel_->Stop();
  EXPECT_TRUE(changes_.empty());
  channel_->Start();
  channel_->Start();
  EXPECT_EQ(changes_, std::vector<bool>({true}));
  channel_->Stop();
  channel_->Stop();
  EXPECT_EQ(changes_, std::vector<bool>({true, false}));
  channel_->Start();
  channel_.reset();
  EXPECT_EQ(changes_, std::vector<bool>({true, false, true, false}));
  EXPECT_EQ(link_->Channel, nullptr);
}

TEST_F(CaptureChannel, IsIdleAfterAStartThatFails) {
  channel_->Start();
  sources_[0]->StartFailure = failure::FilterRefused;
  sources_[0]->Count = 1;
  EXPECT_EQ(FailureOf([&] { channel_->Start(); }), failure::FilterRefused);
  EXPECT_EQ(changes_, std::vector<bool>({true, false}));
  EXPECT_FALSE(channel_->DeliverOne());
}

TEST_F(CaptureChannel, CountsItsAdaptersFromOne) {
  EXPECT_EQ(channel_->AdapterCount(), 2);
  EXPECT_EQ(FailureOf([&] { channel_->Adapters(0); }), failure::SubscriptOutOfRange);
  EXPECT_EQ(FailureOf([&] { channel_->Adapters(3); }), failure::SubscriptOutOfRange);
  EXPECT_EQ(&channel_->Adapter(), &channel_->Adapters(1));
}

TEST_F(CaptureChannel, LetsGoOfTheAdapterThatIsReplaced) {
  channel_->Start();
  channel_->SetAdapter(channel_->Adapters(1));
  EXPECT_EQ(sources_[0]->Log, "start ");
  channel_->SetAdapter(channel_->Adapters(2));
  EXPECT_EQ(sources_[0]->Log, "start stop release ");
  EXPECT_EQ(changes_, std::vector<bool>({true, false}));
  channel_->Start();
  EXPECT_EQ(sources_[1]->Log, "start ");
}

TEST_F(CaptureChannel, DeliversNothingWithoutAnAdapter) {
  std::vector<std::unique_ptr<adapters::SourceAdapter>> adapters;
  auto source = std::make_unique<ScriptedSource>();
  source->Count = 1;
  adapters.push_back(
      std::make_unique<adapters::SourceAdapter>("a source", true, std::move(source), clock_));
  adapters::CaptureChannel unset(std::move(adapters), std::make_shared<adapters::ChannelLink>());
  EXPECT_EQ(FailureOf([&] { unset.Start(); }), 0);
  EXPECT_FALSE(unset.DeliverOne());
  unset.DeliverArrived();
  unset.SetAdapter(unset.Adapters(1));
  EXPECT_FALSE(unset.DeliverOne()) << "a choice is no start";
  unset.Start();
  EXPECT_TRUE(unset.DeliverOne());
}

TEST_F(CaptureChannel, RefusesAStrangeAdapterAndHasNoneUnchosen) {
  adapters::CaptureChannel empty({}, std::make_shared<adapters::ChannelLink>());
  EXPECT_EQ(FailureOf([&] { empty.Adapter(); }), failure::ObjectNotSet);
  EXPECT_EQ(FailureOf([&] { empty.SetAdapter(channel_->Adapters(1)); }),
            failure::InvalidPropertyValue);
  empty.Stop();
}

TEST_F(CaptureChannel, GivesTheSourceItsSettingsWithTheFilter) {
  platform::CaptureAdapter& adapter = channel_->Adapter();
  adapter.Set("BuffSize", 33554432);
  adapter.Set("BuffMinToCopy", 0);
  adapter.Set("HWFilter", 32);
  adapter.Set("mode", 1);
  EXPECT_EQ(sources_[0]->Settings.BufferBytes, 262144);
  adapter.Set("BPFilter", std::string("ether proto 0x88ba"));
  EXPECT_EQ(sources_[0]->Settings.BufferBytes, 33554432);
  EXPECT_TRUE(sources_[0]->Settings.Promiscuous);
  EXPECT_EQ(sources_[0]->Settings.Filter, "ether proto 0x88ba");
}

TEST_F(CaptureChannel, RefusesPropertiesThatItDoesNotHave) {
  platform::CaptureAdapter& adapter = channel_->Adapter();
  EXPECT_EQ(FailureOf([&] { adapter.Set("Speed", 1); }), failure::InvalidPropertyValue);
  EXPECT_EQ(FailureOf([&] { adapter.Set("mode", 2); }), failure::InvalidPropertyValue);
  EXPECT_EQ(FailureOf([&] { adapter.Set("BuffMinToCopy", 1); }), failure::InvalidPropertyValue);
  EXPECT_EQ(FailureOf([&] { adapter.Set("BuffSize", 0); }), failure::InvalidPropertyValue);
  EXPECT_EQ(FailureOf([&] { adapter.Set("BPFilter", 1); }), failure::TypeMismatch);
  EXPECT_EQ(FailureOf([&] { adapter.Set("BuffSize", std::string("1")); }), failure::TypeMismatch);
}

}  // namespace
