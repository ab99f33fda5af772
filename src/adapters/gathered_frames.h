#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "platform/services/capture_object.h"

namespace adapters {

/// Frames that wait to be handed over in an order that is not that of their coming: the longest and
/// the one that is wanted most stand before the others. Of these, so many are kept that a bus can
/// send them in the time of a gathering; where more come, the oldest go, so that the kept ones are
/// without a gap up to those that the source has still to give.
class GatheredFrames {
 public:
  static constexpr std::size_t MostKept = 16384;

  void Clear();
  void Add(const platform::CapturedFrame& frame, platform::Wanted wanted);
  bool Empty() const { return count_ == 0; }
  /// The frames are complete. The earliest of the longest comes first where that is asked for, then
  /// the earliest of those that are wanted most, then the others in their order.
  void PutInOrder(bool longestFirst);
  /// Valid until the next call.
  std::optional<platform::CapturedFrame> Next();

 private:
  struct Frame {
    /// The place in the order of coming.
    std::uint64_t Number = 0;
    std::size_t Length = 0;
    std::chrono::microseconds Arrived{0};
    std::vector<std::uint8_t> Bytes;
  };
  struct WantedFrame {
    platform::Wanted How = platform::Wanted::No;
    Frame What;
  };

  void KeepWanted(const Frame& frame, platform::Wanted wanted);
  void BringForward(const Frame& frame);

  std::uint64_t count_ = 0;
  std::optional<Frame> longest_;
  /// The two that are wanted most: the first may prove to be the longest.
  WantedFrame wanted_;
  WantedFrame wantedNext_;
  /// Those that stand before the others.
  std::deque<Frame> head_;
  std::deque<Frame> others_;
  /// The one that was handed over last.
  Frame handed_;
};

}  // namespace adapters
