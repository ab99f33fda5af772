#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

#include "capture/block_arrays.h"
#include "platform/stream_format.h"

namespace packetroutines {

/// The latest frames of each stream for the writer, one cell a frame: a second of them at 50 Hz.
/// They are written in order and handed over whole, so they work as flat buffers rather than as
/// true rings.
struct RecordRings {
  /// Frames between two hand-overs.
  static constexpr std::int16_t Cells = platform::SamplesASecond;

  CheckedArray<std::int32_t> RecordCount;
  std::array<CheckedArray<double>, platform::channels::Count> RecordChannel;
  CheckedArray<std::int16_t> RecordCount2;
  std::array<CheckedArray<double>, platform::channels::Count> RecordChannel2;

  /// The most cells of a ring: more than half an hour of frames.
  static constexpr std::int32_t MaximumCells = 10'000'000;

  /// `triggerCells` is the size that the trigger times ask for; only six rings follow it, and none
  /// gets smaller than `Cells`. Failure 7 where it is too large.
  void Reserve(std::int32_t triggerCells) {
    if (triggerCells > MaximumCells) throw platform::Failure(platform::failure::OutOfMemory);
    WithMemory([&] {
      RecordCount.Redim(Cells);
      RecordCount2.Redim(Cells);
      for (auto& channel : RecordChannel) channel.Redim(Cells);
      for (auto& channel : RecordChannel2) channel.Redim(Cells);
      for (std::size_t k = 0; k < RecordChannel.size(); ++k) {
        if (platform::channels::IsNeutral(k)) continue;
        RecordChannel[k].Redim(std::max<std::int32_t>(triggerCells, Cells));
      }
    });
  }
};

}  // namespace packetroutines
