#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

namespace console {

/// The times between the arrivals of one frame and the next: the smallest, the mean, the greatest,
/// and what all but so many stay below. It keeps no gap, and its size does not grow with them.
class ArrivalGaps {
 public:
  using Time = std::chrono::microseconds;

  /// A clock that was set back makes a gap of nothing.
  void Add(Time gap);
  void Clear();

  std::uint64_t Count() const { return count_; }
  Time Smallest() const { return smallest_; }
  Time Greatest() const { return greatest_; }
  /// In microseconds; 0 where there is no gap.
  double Mean() const;
  /// So many of a thousand gaps are at most this long. Exact up to 8 ms, above it the upper end of
  /// a class whose width is less than a hundredth of it.
  Time Below(std::uint32_t ofThousand) const;

 private:
  std::uint64_t count_ = 0;
  Time sum_{0};
  Time smallest_{0};
  Time greatest_{0};
  /// Gaps of each class; made with the first of them.
  std::vector<std::uint32_t> classes_;
};

}  // namespace console
