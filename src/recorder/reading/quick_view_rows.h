#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/zeroed_array.h"

namespace subroutines {

/// The values of one group of lines of a recording. The values of a channel lie side by side, so
/// that a channel can be taken out without copying.
class QuickViewRows {
 public:
  static constexpr std::size_t Channels = 8;

  /// Rows that read 0 until they are filled; failure 7 where there is no memory for them.
  void Rebuild(std::int32_t rows);
  std::span<const float> Column(std::size_t channel) const {
    return cells_.All().subspan(channel * rows_, rows_);
  }

  /// Takes the eight values of a line of the recording, the third field and those behind it. A
  /// field that is none of a number counts as the number that it begins with; where the line ends
  /// early, so does its last field, and those that it lacks are 0. Failure 6 where a number is no
  /// 32-bit float.
  void ParseRecordLine(std::string_view line, std::int32_t row);

 private:
  std::size_t rows_ = 0;
  platform::ZeroedArray<float> cells_;
};

}  // namespace subroutines
