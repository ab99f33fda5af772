#pragma once

#include <cmath>
#include <string>

#include "support/scene.h"

namespace support {

/// A frame of a square wave that changes its sign with each frame, so that a block has the given
/// levels as its RMS to the last digit, `amps` on every current and `kilovolts` on every voltage.
/// `offset` is added to every current in A and to every voltage in kV.
inline FrameBytes SquareFrame(int i, double amps, double kilovolts, double offset = 0,
                              const std::string& id = "MU01") {
  const double sign = i % 2 == 0 ? 1 : -1;
  SvFrame frame(id);
  frame.Count(static_cast<std::uint16_t>(i % 4000));
  for (std::size_t channel = 0; channel < 4; ++channel) {
    frame.Raw(channel, static_cast<std::int32_t>(std::lround((sign * amps + offset) * 1000)));
    frame.Raw(channel + 4,
              static_cast<std::int32_t>(std::lround((sign * kilovolts + offset) * 100000)));
  }
  return frame.Bytes();
}

}  // namespace support
