#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace sv {

/// Samples a second at 50 and 60 Hz (IEC 61850-9-2LE, IEC 61869-9): the rounds that counters go.
inline constexpr std::array<std::uint32_t, 7> StandardRates = {4000,  4800,  5760, 9600,
                                                               12800, 14400, 15360};

inline bool IsStandardRate(std::uint32_t rate) {
  return std::find(StandardRates.begin(), StandardRates.end(), rate) != StandardRates.end();
}

/// The smallest standard round that holds the counter; the counter's own where none does.
inline std::uint32_t RoundFor(std::uint32_t counter) {
  const auto* const found = std::upper_bound(StandardRates.begin(), StandardRates.end(), counter);
  return found == StandardRates.end() ? counter + 1 : *found;
}

}  // namespace sv
