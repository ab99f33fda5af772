#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/failure.h"
#include "platform/services/bus_tap.h"
#include "support/manual_clock.h"
#include "support/sv_frame.h"

namespace support {

/// A bus whose frames stand written, each with its time of arrival; it has no others.
class PlayedTaps : public platform::BusTaps {
 public:
  struct Frame {
    FrameBytes Bytes;
    std::chrono::microseconds Arrived{0};
  };

  explicit PlayedTaps(const ManualClock& clock) : clock_(clock) {}

  std::vector<platform::CapturePlace> Places() override { return List; }
  std::string Advice() const override { return AdviceText; }
  std::unique_ptr<platform::BusTap> Open(const std::string& name, platform::TapPace) override {
    if (RefusedWith) throw *RefusedWith;
    Opened = name;
    return std::make_unique<Tap>(*this);
  }

  /// The next frame comes so long behind the one before; the first one at the clock's present.
  void Send(const SvFrame& frame, std::chrono::microseconds gap) {
    const auto before = Frames.empty() ? clock_.WallTime() : Frames.back().Arrived + gap;
    Frames.push_back({frame.Bytes(), before});
  }

  std::vector<platform::CapturePlace> List{{"eth0", "eth0 (network interface)", true}};
  std::string AdviceText;
  std::optional<platform::Failure> RefusedWith;
  std::string Opened;
  std::deque<Frame> Frames;
  /// The frames are those of a file, and their end is its end.
  bool IsFile = true;
  std::string Damage;
  std::optional<std::uint64_t> DroppedFrames;

 private:
  class Tap : public platform::BusTap {
   public:
    explicit Tap(PlayedTaps& taps) : taps_(taps) {}

    std::optional<platform::CapturedFrame> Next() override {
      handed_.reset();
      if (taps_.Frames.empty()) return std::nullopt;
      if (!taps_.IsFile && taps_.Frames.front().Arrived > taps_.clock_.WallTime()) {
        return std::nullopt;
      }
      handed_ = taps_.Frames.front();
      now_ = handed_->Arrived;
      taps_.Frames.pop_front();
      return platform::CapturedFrame{handed_->Bytes, handed_->Bytes.size(), handed_->Arrived};
    }
    bool Ends() const override { return taps_.IsFile; }
    bool Ended() const override { return taps_.IsFile && taps_.Frames.empty(); }
    std::chrono::microseconds Now() const override {
      return taps_.IsFile ? now_ : taps_.clock_.WallTime();
    }
    std::optional<std::uint64_t> Dropped() override { return taps_.DroppedFrames; }
    std::string Trouble() const override { return taps_.Damage; }

   private:
    PlayedTaps& taps_;
    std::optional<Frame> handed_;
    std::chrono::microseconds now_{0};
  };

  const ManualClock& clock_;
};

}  // namespace support
