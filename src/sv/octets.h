#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace sv {

/// A part of a frame, as it came.
using Octets = std::span<const std::uint8_t>;

/// The number that up to eight octets spell, the most significant one first.
inline std::uint64_t Number(Octets octets) {
  std::uint64_t number = 0;
  for (const std::uint8_t octet : octets) number = number << 8U | octet;
  return number;
}

}  // namespace sv
