#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "capture/frame_digits.h"
#include "capture/packet_bytes.h"

namespace packetroutines {

/// What the searches find in a frame, whatever it really stands for. Each search begins where the
/// one before it ended.
class SearchedFrame {
 public:
  void Take(const PacketBytes& bytes);
  const FrameDigits& Digits() const { return digits_; }

  /// Two digits each; fewer where the frame ends before.
  std::string_view SequenceLength() const { return digits_.Pair(asduCount_ + 8); }
  std::string_view FirstAsduLength() const { return digits_.Pair(asduCount_ + 12); }
  /// In the system's code page.
  std::string StationId() const { return digits_.StationId(stationTag_); }
  std::int32_t SampleCount() const;
  /// Its two digits, read as a decimal number.
  std::size_t Synchronisation() const;

 private:
  FrameDigits digits_;
  std::size_t asduCount_ = 0;
  std::size_t stationTag_ = 0;
  /// Of these two the length bytes.
  std::size_t counter_ = 0;
  std::size_t synchronisation_ = 0;
};

}  // namespace packetroutines
