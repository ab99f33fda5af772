#pragma once

#include <memory>

#include "adapters/frame_source.h"
#include "platform/clock.h"
#include "platform/services/bus_tap.h"

namespace adapters {

/// A bus that goes on for ever: a network interface or the simulated one.
class SourceTap : public platform::BusTap {
 public:
  /// Begins to listen; fails as the source does.
  SourceTap(std::unique_ptr<FrameSource> source, const platform::Clock& clock);

  std::optional<platform::CapturedFrame> Next() override;
  bool Ended() const override { return false; }
  std::chrono::microseconds Now() const override { return clock_.WallTime(); }
  platform::Presence Present() override { return source_->Presence(); }
  std::optional<std::uint64_t> Dropped() override { return source_->Dropped(); }

 private:
  std::unique_ptr<FrameSource> source_;
  const platform::Clock& clock_;
};

}  // namespace adapters
