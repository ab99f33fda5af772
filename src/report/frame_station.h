#pragma once

#include <cstdint>
#include <string>

#include "capture/frame_digits.h"
#include "capture/packet_bytes.h"
#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"

namespace packetroutines {

/// Reads the station ID of a frame that waits to be handed over, as the report will read it, and
/// leaves the rows of the report alone.
class FrameStation {
 public:
  explicit FrameStation(const platform::CodePage& code) : code_(code) {}

  /// `expected` is the length that the frame is going to be read with.
  std::string Id(const platform::CapturedFrame& frame, std::int16_t expected);

 private:
  const platform::CodePage& code_;
  PacketBytes bytes_;
  FrameDigits digits_;
};

/// The length of a frame as far as cells can be given to it.
std::int16_t LengthInCells(const platform::CapturedFrame& frame);

}  // namespace packetroutines
