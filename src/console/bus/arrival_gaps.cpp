#include "console/bus/arrival_gaps.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace console {

namespace {

/// Below it each microsecond is a class; each doubling above it has so many.
constexpr std::uint64_t ExactBelow = 8192;
constexpr std::uint64_t ClassesADoubling = 128;
constexpr int ExactBits = 13;
constexpr int ClassBits = 7;
/// Longer ones share the last class: two hours.
constexpr std::uint64_t Longest = std::uint64_t{1} << 33U;
constexpr std::size_t ClassCount = ExactBelow + 20 * ClassesADoubling;

std::size_t ClassOf(std::uint64_t gap) {
  if (gap < ExactBelow) return gap;
  gap = std::min(gap, Longest - 1);
  const int doubling = static_cast<int>(std::bit_width(gap)) - 1;
  const std::uint64_t within = (gap >> (doubling - ClassBits)) - ClassesADoubling;
  return ExactBelow + static_cast<std::size_t>(doubling - ExactBits) * ClassesADoubling + within;
}

/// The longest gap of a class.
std::uint64_t EndOf(std::size_t place) {
  if (place < ExactBelow) return place;
  const std::uint64_t above = place - ExactBelow;
  const auto doubling = static_cast<unsigned>(above / ClassesADoubling) + ExactBits;
  const std::uint64_t within = above % ClassesADoubling + ClassesADoubling;
  return ((within + 1) << (doubling - ClassBits)) - 1;
}

}  // namespace

void ArrivalGaps::Add(Time gap) {
  gap = std::max(gap, Time{0});
  if (classes_.empty()) classes_.resize(ClassCount);
  ++classes_[ClassOf(static_cast<std::uint64_t>(gap.count()))];
  smallest_ = count_ == 0 ? gap : std::min(smallest_, gap);
  greatest_ = std::max(greatest_, gap);
  sum_ += gap;
  ++count_;
}

void ArrivalGaps::Clear() {
  if (count_ > 0) std::fill(classes_.begin(), classes_.end(), 0U);
  count_ = 0;
  sum_ = smallest_ = greatest_ = Time{0};
}

double ArrivalGaps::Mean() const {
  return count_ == 0 ? 0 : static_cast<double>(sum_.count()) / static_cast<double>(count_);
}

ArrivalGaps::Time ArrivalGaps::Below(std::uint32_t ofThousand) const {
  // The first class up to which there are enough, rounded up.
  const std::uint64_t wanted = (count_ * ofThousand + 999) / 1000;
  std::uint64_t met = 0;
  for (std::size_t place = 0; place < classes_.size(); ++place) {
    met += classes_[place];
    if (met >= wanted && met > 0) {
      return std::min(Time{static_cast<std::int64_t>(EndOf(place))}, greatest_);
    }
  }
  return greatest_;
}

}  // namespace console
