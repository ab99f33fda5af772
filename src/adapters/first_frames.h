#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

#include "adapters/frame_source.h"
#include "adapters/gathered_frames.h"
#include "platform/clock.h"

namespace adapters {

/// Any source, with its first frames in an order that does not depend on luck.
///
/// The program expects all frames to be at most as long as the first one that it gets after a
/// setup, so the longest comes first. For that it gathers what arrives in a short time from the
/// first frame on, at each start until a frame has been handed over.
///
/// Senders that are locked to one clock send in bursts, always in the same order, so that the first
/// frame after a start is nearly always the same sender's. Who takes one frame a start, or the
/// second behind a setup, states a wish: while there is one, each start gathers, and the frame that
/// is wanted most comes first, but for the longest. Without a wish a later start changes nothing.
class FirstFrames : public FrameSource {
 public:
  FirstFrames(std::unique_ptr<FrameSource> source, const platform::Clock& clock);

  /// What is wanted from the next start on.
  void SetWish(platform::FrameWish wish) { wish_ = std::move(wish); }

  void Prepare(const SourceSettings& settings) override;
  void Start() override;
  /// Frames that were gathered and not handed over are lost, like all frames of a stopped time.
  void Stop() override;
  /// A gathering that is under way ends with what has arrived.
  void TakeNoMore() override;
  void Release() override;
  platform::Presence Presence() override { return source_->Presence(); }
  std::optional<std::uint64_t> Dropped() override { return source_->Dropped(); }
  std::optional<platform::CapturedFrame> Next() override;
  bool LookedAtAll() const override { return lookedAtAll_ && source_->LookedAtAll(); }

 private:
  /// Takes what waits. True when it is time to hand over and there is something to hand over.
  bool Gather();
  void Drop();

  std::unique_ptr<FrameSource> source_;
  const platform::Clock& clock_;
  platform::FrameWish wish_;
  /// No frame has been handed over since the setup.
  bool fresh_ = false;
  bool running_ = false;
  bool gathering_ = false;
  bool takesMore_ = true;
  /// A gathering that is under way has taken all that waits.
  bool lookedAtAll_ = true;
  /// When the gathering ends; its first frame tells.
  std::optional<std::chrono::nanoseconds> end_;
  GatheredFrames gathered_;
};

}  // namespace adapters
