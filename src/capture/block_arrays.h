#pragma once

#include <cstdint>
#include <new>
#include <vector>

#include "platform/block_matrix.h"
#include "platform/failure.h"

namespace packetroutines {

/// A sequence whose cells are reached by index; failure 9 outside of it.
template <typename T>
class CheckedArray {
 public:
  void Redim(std::int32_t count) { cells_.assign(static_cast<std::size_t>(count), T{}); }
  std::int32_t Count() const { return static_cast<std::int32_t>(cells_.size()); }
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

  std::vector<T> cells_;
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
  /// The most rows that a block can have: more than forty minutes of frames.
  static constexpr std::int32_t MaximumRows = 10'000'000;

  platform::BlockMatrix SignalValues;
  platform::BlockMatrix SignalValues2;
  CheckedArray<std::int32_t> SampleCount;
  CheckedArray<std::int16_t> SampleCount2;

  /// Makes all arrays anew and thereby empty; failure 7 where the rows do not fit into memory.
  void Rebuild(std::int32_t baseSamples) {
    if (baseSamples > MaximumRows) throw platform::Failure(platform::failure::OutOfMemory);
    WithMemory([&] {
      SignalValues.Rebuild(baseSamples);
      SignalValues2.Rebuild(baseSamples);
      SampleCount.Redim(baseSamples);
      SampleCount2.Redim(baseSamples);
    });
  }
};

}  // namespace packetroutines
