#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/failure.h"
#include "platform/services/bus_tap.h"
#include "support/manual_clock.h"
#include "support/sv_frame.h"
#include "sv/asdu.h"
#include "sv/frame.h"

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
    if (RefusedWith) throw platform::Failure(*RefusedWith);
    Opened = name;
    return std::make_unique<Tap>(*this);
  }

  /// The next frame comes so long behind the one before; the first one at the clock's present.
  void Send(const SvFrame& frame, std::chrono::microseconds gap) {
    const auto before = Frames.empty() ? clock_.WallTime() : Frames.back().Arrived + gap;
    Frames.push_back({frame.Bytes(), before});
  }

  /// Frames of one form, whose counters go from one number to another, round by round.
  void SendRun(const SvFrame& form, std::uint32_t from, std::uint32_t to,
               std::chrono::microseconds gap, std::uint32_t round = 4000) {
    // Only the counter differs, and building a frame costs more than all that is done with it.
    FrameBytes bytes = form.Bytes();
    const sv::Frame frame = sv::ReadFrame(bytes, bytes.size());
    sv::AsduReader reader(frame);
    sv::Asdu asdu;
    if (!reader.Next(asdu)) throw std::logic_error("a frame without a counter");
    for (std::uint32_t i = from; i < to; ++i) {
      bytes[asdu.SmpCntAt] = static_cast<std::uint8_t>(i % round >> 8U);
      bytes[asdu.SmpCntAt + 1] = static_cast<std::uint8_t>(i % round);
      const auto arrived = Frames.empty() ? clock_.WallTime() : Frames.back().Arrived + gap;
      Frames.push_back({bytes, arrived});
    }
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
  platform::Presence Present = platform::Presence::There;

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
    platform::Presence Present() override { return taps_.Present; }
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
