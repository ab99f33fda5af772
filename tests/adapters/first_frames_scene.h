#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <memory>
#include <numeric>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "adapters/first_frames.h"
#include "adapters/hand_clock.h"
#include "base/failure.h"

namespace adapter_tests {

using std::chrono_literals::operator""ms;
using platform::CapturedFrame;
using platform::Wanted;

/// A source of frames that the scene lets arrive; all lie in one buffer, so that a frame is gone as
/// soon as the next is asked for.
class ArrivingFrames : public adapters::FrameSource {
 public:
  void Prepare(const adapters::SourceSettings&) override {
    if (PrepareFailure != 0) throw platform::Failure(PrepareFailure);
    Stop();
  }
  void Start() override {
    if (StartFailure != 0) throw platform::Failure(StartFailure);
    running_ = true;
  }
  void Stop() override {
    running_ = false;
    Waiting.clear();
  }
  void TakeNoMore() override { ++NoMore; }
  void Release() override { Stop(); }
  std::optional<CapturedFrame> Next() override {
    if (!running_ || Waiting.empty()) return std::nullopt;
    if (Refused > 0) {
      const int passedOver = std::min(Refused, 4096);
      Refused -= passedOver;
      lookedAtAll_ = passedOver < 4096;
      return std::nullopt;
    }
    lookedAtAll_ = true;
    const auto [mark, length] = Waiting.front();
    Waiting.pop_front();
    buffer_.assign(50, static_cast<std::uint8_t>(mark));
    buffer_[0] = static_cast<std::uint8_t>(mark >> 8);
    return CapturedFrame{buffer_, length};
  }
  bool LookedAtAll() const override { return lookedAtAll_; }

  int NoMore = 0;
  std::int32_t PrepareFailure = 0;
  std::int32_t StartFailure = 0;
  /// Frames in front of those that wait, which the filter refuses.
  int Refused = 0;
  std::deque<std::pair<int, std::size_t>> Waiting;

 private:
  bool running_ = false;
  bool lookedAtAll_ = true;
  std::vector<std::uint8_t> buffer_;
};

/// The first frames of a source, at a clock and with a wish in the hands of the scene.
class FirstFramesScene : public ::testing::Test {
 protected:
  using Marks = std::vector<int>;

  FirstFramesScene() {
    auto arriving = std::make_unique<ArrivingFrames>();
    wire_ = arriving.get();
    frames_ = std::make_unique<adapters::FirstFrames>(std::move(arriving), clock_);
  }

  void Run() {
    frames_->Prepare({});
    frames_->Start();
  }
  void Restart() {
    frames_->Stop();
    frames_->Start();
  }
  void Arrive(int mark, std::size_t length = 130) { wire_->Waiting.emplace_back(mark, length); }
  void Arrive(std::initializer_list<int> marks) {
    for (const int mark : marks) Arrive(mark);
  }
  static int MarkOf(const CapturedFrame& frame) {
    return frame.Bytes.front() * 256 + frame.Bytes.back();
  }
  /// The caller would like to meet these most, and those rather than others.
  void Wish(const std::set<int>& most, const std::set<int>& rather = {}) {
    frames_->SetWish([most, rather](const CapturedFrame& frame) {
      const int mark = MarkOf(frame);
      if (most.contains(mark)) return Wanted::Most;
      return rather.contains(mark) ? Wanted::Rather : Wanted::No;
    });
  }
  /// The marks of the frames that are handed over now, at most so many.
  Marks Taken(std::size_t most = 100000) {
    Marks marks;
    while (marks.size() < most) {
      const auto frame = frames_->Next();
      if (!frame) break;
      EXPECT_EQ(frame->Bytes.size(), 50U);
      marks.push_back(MarkOf(*frame));
    }
    return marks;
  }
  Marks TakenAfter(std::chrono::nanoseconds time) {
    clock_.Time += time;
    return Taken();
  }
  /// What waits begins the gathering; then its time passes.
  Marks TakenBehindGathering(std::size_t most = 100000) {
    EXPECT_EQ(Taken(), Marks());
    clock_.Time += 20ms;
    return Taken(most);
  }
  static Marks FromTo(int first, int last) {
    Marks marks(static_cast<std::size_t>(last - first + 1));
    std::iota(marks.begin(), marks.end(), first);
    return marks;
  }

  HandClock clock_;
  ArrivingFrames* wire_ = nullptr;
  std::unique_ptr<adapters::FirstFrames> frames_;
};

}  // namespace adapter_tests
