#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "adapters/frame_source.h"
#include "platform/clock.h"

namespace adapters {

/// Any source, with its first frames after a setup in an order that does not depend on luck: the
/// program expects all frames to be at most as long as the first one that it gets, so the longest
/// of them comes first. For that it gathers what arrives in a short time after the start. It does
/// so at each start until a frame has been handed over; from then on a start changes nothing.
///
/// Who takes the second frame after a setup, as a report does, would meet the shorter one of two
/// alternating streams each time. So after every other setup the next one of the longest comes
/// second; the frames of one length keep their order all the same.
class FirstFrames : public FrameSource {
 public:
  FirstFrames(std::unique_ptr<FrameSource> source, const platform::Clock& clock);

  void Prepare(const SourceSettings& settings) override;
  void Start() override;
  /// Frames that were gathered and not handed over are lost, like all frames of a stopped time.
  void Stop() override;
  void TakeNoMore() override { source_->TakeNoMore(); }
  void Release() override;
  platform::Presence Presence() override { return source_->Presence(); }
  std::optional<platform::CapturedFrame> Next() override;

 private:
  struct GatheredFrame {
    std::vector<std::uint8_t> Bytes;
    std::size_t Length;
  };

  /// Takes what waits. True when it is time to hand over and there is something to hand over.
  bool Gather();
  void PutInOrder();
  /// Brings the earliest of the longest frames from a place on to that place.
  void BringLongestTo(std::size_t place);
  void Drop();

  std::unique_ptr<FrameSource> source_;
  const platform::Clock& clock_;
  /// No frame has been handed over since the setup.
  bool fresh_ = false;
  /// When the gathering that is under way ends.
  std::optional<std::chrono::nanoseconds> end_;
  std::vector<GatheredFrame> gathered_;
  /// The next gathering has two of the longest frames at its head.
  bool twoOfTheLongest_ = false;
  /// The gathered frame to be handed over next.
  std::size_t next_ = 0;
};

}  // namespace adapters
