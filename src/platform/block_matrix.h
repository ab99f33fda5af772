#pragma once

#include <cstdint>
#include <cstring>
#include <span>

#include "base/failure.h"
#include "base/zeroed_array.h"
#include "platform/stream_format.h"

namespace platform {

/// The two-dimensional block of values that the analysis controls take: rows of eight channels. A
/// cell that was never written is empty and counts as 0.
class BlockMatrix {
 public:
  static constexpr std::size_t Channels = channels::Count;

  void Rebuild(std::int32_t rows) {
    cells_.Redim(static_cast<std::size_t>(rows) * Channels);
    rows_ = rows;
  }
  std::int32_t Rows() const { return rows_; }
  /// Takes over the cells of a block of as many rows.
  void CopyFrom(const BlockMatrix& other) {
    const std::span<const double> from = other.Cells();
    if (!from.empty()) std::memcpy(cells_.All().data(), from.data(), from.size_bytes());
  }
  /// The eight cells of a row; failure 9 outside the block.
  std::span<double, Channels> Row(std::int32_t row) {
    return std::span<double, Channels>(&cells_[At(row)], Channels);
  }
  std::span<const double, Channels> Row(std::int32_t row) const {
    return std::span<const double, Channels>(&cells_[At(row)], Channels);
  }
  std::span<const double> Cells() const { return cells_.All(); }

 private:
  std::size_t At(std::int32_t row) const {
    if (row < 0 || row >= rows_) throw Failure(failure::SubscriptOutOfRange);
    return static_cast<std::size_t>(row) * Channels;
  }

  std::int32_t rows_ = 0;
  ZeroedArray<double> cells_;
};

}  // namespace platform
