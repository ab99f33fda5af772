#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/stream_format.h"

namespace packetroutines {

/// Bytes of one channel in seqData: a value and a quality word of four bytes each.
inline constexpr std::int32_t BytesAChannel = 8;
/// Bytes of seqData with all channels.
inline constexpr std::int32_t BytesASample =
    BytesAChannel * static_cast<std::int32_t>(platform::channels::Count);

/// Where the value of a channel stands, behind the first byte of seqData.
constexpr std::int32_t PlaceOf(std::size_t channel) {
  return BytesAChannel * static_cast<std::int32_t>(channel);
}

/// The value of four bytes, most significant first. The pattern 0x80000000 stays positive: only
/// what is greater wraps.
inline double RawSample(const std::uint8_t* b) {
  const std::uint32_t raw =
      std::uint32_t{b[0]} << 24 | std::uint32_t{b[1]} << 16 | std::uint32_t{b[2]} << 8 | b[3];
  // One less wraps as a number of 32 bits does, which a processor makes a floating one at once.
  return static_cast<double>(static_cast<std::int32_t>(raw - 1)) + 1;
}

/// A raw value in amperes or kilovolts: currents come in milliamperes, voltages in tens of
/// millivolts.
inline double Scaled(double raw, std::size_t channel) {
  return platform::channels::IsCurrent(channel) ? raw / 1000 : raw / 100000;
}

}  // namespace packetroutines
