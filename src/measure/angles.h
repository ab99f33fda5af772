#pragma once

namespace subroutines {

/// The constants of the phase analysis and of the phasor diagram. They have these digits by design:
/// figures agree to the last bit with those that were taken with them.
inline constexpr double Pi = 3.14159265358979;
inline constexpr double TwoPi = 6.28318530717958;

}  // namespace subroutines
