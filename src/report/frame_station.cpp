#include "report/frame_station.h"

#include <algorithm>
#include <limits>

namespace packetroutines {

std::string FrameStation::Id(const platform::CapturedFrame& frame, std::int16_t expected) {
  bytes_.Redim(expected);
  bytes_.Copy(frame.Bytes);
  digits_.Take(bytes_);
  return code_.ToUtf8(digits_.StationId(digits_.StationTag(digits_.AsduCount())));
}

std::int16_t LengthInCells(const platform::CapturedFrame& frame) {
  constexpr std::size_t most = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(std::min(frame.Length, most));
}

}  // namespace packetroutines
