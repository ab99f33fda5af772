#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>

#include "support/sv_frame.h"

namespace support {

/// Frame `i` of a balanced three-phase set of 80 frames a period with these RMS values; the
/// currents lag their voltages by `lag` degrees, and the neutrals carry a hundredth of the phases.
inline SvFrame PhasorSet(int i, double amps, double kilovolts, double lag) {
  SvFrame frame;
  frame.Count(static_cast<std::uint16_t>(i % 4000));
  const auto wave = [i](double degrees) {
    return std::numbers::sqrt2 *
           std::sin(2 * std::numbers::pi * (i % 80) / 80.0 - degrees * std::numbers::pi / 180);
  };
  const double phase[] = {0, 120, -120, 0};
  for (std::size_t k = 0; k < 4; ++k) {
    const double share = k == 3 ? 0.01 : 1;
    frame.Raw(k, static_cast<std::int32_t>(std::lround(amps * share * 1e3 * wave(phase[k] + lag))));
    frame.Raw(k + 4,
              static_cast<std::int32_t>(std::lround(kilovolts * share * 1e5 * wave(phase[k]))));
  }
  return frame;
}

inline FrameBytes PhasorFrame(int i, double amps, double kilovolts, double lag) {
  return PhasorSet(i, amps, kilovolts, lag).Bytes();
}

/// The currents of such a set alone; foreign bytes stand where the voltages would be.
inline FrameBytes FourChannelPhasorFrame(int i, double amps, double lag) {
  return PhasorSet(i, amps, 0, lag).Channels(4).Trailer(FrameBytes(32, 0x11)).Bytes();
}

}  // namespace support
