#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace packetroutines {

/// Counted blocks at the first ring that is full, and the samples of such a block: the block that
/// fills a ring is not counted, so with blocks of 400 samples a ring of ten has nine.
inline constexpr std::int32_t FirstRingBlocks = 9;
inline constexpr std::int64_t SamplesOfBlock = 400;
/// Lines by which numbers that follow the counted blocks are set back, so that those of the first
/// ring start at 0.
inline constexpr std::int64_t LinesSetBack = FirstRingBlocks * SamplesOfBlock;

/// Replaces the first comma from a place on by a point: it takes the decimal comma of a locale out
/// of a number text.
inline void DotDecimal(std::string& text, std::size_t from = 0) {
  const std::size_t comma = text.find(',', from);
  if (comma != std::string::npos) text[comma] = '.';
}

}  // namespace packetroutines
