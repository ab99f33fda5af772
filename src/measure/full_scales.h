#pragma once

#include <array>
#include <cstdint>

namespace subroutines {

/// The full scales of the phasor diagram, in the chosen units: the ladders that the automatic
/// choice climbs, and the lists that a user chooses from.
inline constexpr std::array<std::int16_t, 7> CurrentScales = {100,  200,  500,  1000,
                                                              2000, 5000, 10000};
inline constexpr std::array<std::int16_t, 5> VoltageScales = {150, 200, 400, 500, 1000};

}  // namespace subroutines
