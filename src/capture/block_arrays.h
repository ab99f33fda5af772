#pragma once

#include <cstdint>
#include <new>
#include <string>
#include <utility>

#include "base/failure.h"
#include "base/zeroed_array.h"
#include "platform/block_matrix.h"

namespace packetroutines {

/// Numbers that are reached by index; failure 9 outside of them.
template <typename T>
class CheckedArray {
 public:
  void Redim(std::int32_t count) { cells_.Redim(static_cast<std::size_t>(count)); }
  std::int32_t Count() const { return static_cast<std::int32_t>(cells_.Count()); }
  T& operator()(std::int32_t index) {
    Check(index);
    return cells_[static_cast<std::size_t>(index)];
  }
  const T& operator()(std::int32_t index) const {
    Check(index);
    return cells_[static_cast<std::size_t>(index)];
  }

 private:
  void Check(std::int32_t index) const {
    if (index < 0 || index >= Count()) {
      throw platform::Failure(platform::failure::SubscriptOutOfRange);
    }
  }

  platform::ZeroedArray<T> cells_;
};

/// Runs what needs much memory; failure 7 where the system has not enough.
template <typename Work>
void WithMemory(Work work) {
  try {
    work();
  } catch (const std::bad_alloc&) {
    throw platform::Failure(platform::failure::OutOfMemory);
  }
}

/// One block of each stream: a row a frame, values in the chosen units (first stream) or in amperes
/// and kilovolts (second stream), and the smpCnt of each row.
struct BlockArrays {
  /// The most rows that a block can have. With them all filled and drawn, in every view, the
  /// program stays below half a gigabyte, and a keystroke that makes the block anew takes no time
  /// that a user would notice.
  static constexpr std::int32_t MaximumRows = 800'000;

  platform::BlockMatrix SignalValues;
  platform::BlockMatrix SignalValues2;
  /// The first stream's rows as they stood when its last block was complete.
  platform::BlockMatrix LastBlock;
  CheckedArray<std::int32_t> SampleCount;
  CheckedArray<std::int16_t> SampleCount2;

  /// Makes all arrays anew and thereby empty; failure 7 where the rows are too many or do not fit
  /// into memory, and all arrays stay then.
  void Rebuild(std::int32_t baseSamples) {
    if (baseSamples > MaximumRows) {
      throw platform::Failure(
          platform::failure::OutOfMemory,
          "Out of memory: a block has at most " + std::to_string(MaximumRows) + " samplings");
    }
    BlockArrays fresh;
    WithMemory([&] {
      fresh.SignalValues.Rebuild(baseSamples);
      fresh.SignalValues2.Rebuild(baseSamples);
      fresh.LastBlock.Rebuild(baseSamples);
      fresh.SampleCount.Redim(baseSamples);
      fresh.SampleCount2.Redim(baseSamples);
    });
    *this = std::move(fresh);
  }

  /// The block is complete. The next burst overwrites it row by row and may be stopped on the way.
  void KeepBlock() { LastBlock.CopyFrom(SignalValues); }
};

}  // namespace packetroutines
