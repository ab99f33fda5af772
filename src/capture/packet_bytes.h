#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "base/failure.h"

namespace packetroutines {

/// The bytes of the current frame at 1-based positions, and the same bytes as text.
///
/// Cell 0 and the cells behind a short frame are empty and read as 0. A position beyond the upper
/// index raises failure 9.
class PacketBytes {
 public:
  PacketBytes() : cells_(LargestUpper + 1) {}

  /// Gives the cells 0 to `upper`, all empty, and empties the text.
  void Redim(std::int16_t upper) {
    upper_ = upper;
    textLength_ = 0;
    std::fill_n(cells_.begin(), upper + 1, std::uint8_t{0});
  }
  std::int32_t Upper() const { return upper_; }
  /// How many bytes of the frame stand in the cells.
  std::int32_t FrameLength() const { return static_cast<std::int32_t>(textLength_); }

  std::uint8_t operator()(std::int32_t position) const {
    if (position < 0 || position > upper_) {
      throw platform::Failure(platform::failure::SubscriptOutOfRange);
    }
    return cells_[static_cast<std::size_t>(position)];
  }
  /// The cells of `count` positions from `position`, or null where they are not all there.
  const std::uint8_t* Run(std::int32_t position, std::int32_t count) const {
    return position >= 0 && position + count - 1 <= upper_ ? &cells_[position] : nullptr;
  }

  /// Takes over the frame from position 1 on; the bytes beyond the upper index stay out, and the
  /// cells behind the frame stay as they are.
  void Copy(std::span<const std::uint8_t> frame) {
    textLength_ = std::min<std::size_t>(frame.size(), static_cast<std::size_t>(upper_));
    std::copy_n(frame.begin(), textLength_, cells_.begin() + 1);
  }
  /// Gives the cells 0 to `upper` and takes over the frame. Only the cells behind it are left to be
  /// emptied, which most frames have none of.
  void Take(std::span<const std::uint8_t> frame, std::int16_t upper) {
    upper_ = upper;
    Copy(frame);
    std::fill(cells_.begin() + 1 + static_cast<std::ptrdiff_t>(textLength_),
              cells_.begin() + 1 + upper, std::uint8_t{0});
  }
  /// The frame as text in the system's code page, one character a byte.
  std::string_view Text() const {
    return {reinterpret_cast<const char*>(cells_.data()) + 1, textLength_};
  }
  void ClearText() { textLength_ = 0; }

 private:
  static constexpr std::int16_t LargestUpper = 32767;

  std::vector<std::uint8_t> cells_;
  std::int32_t upper_ = 0;
  std::size_t textLength_ = 0;
};

}  // namespace packetroutines
