#include "adapters/files/file_pace.h"

#include <algorithm>
#include <utility>

#include "platform/stream_format.h"

namespace adapters {

using std::chrono::nanoseconds;

namespace {

/// A longer pause is a clock that was set while the file was written, not the pace of a bus.
constexpr nanoseconds LongestGap = std::chrono::hours(1);

}  // namespace

nanoseconds FilePace::GapBefore(nanoseconds stamp) {
  const std::optional<nanoseconds> before = std::exchange(last_, stamp);
  if (!before) return {};
  const nanoseconds gap = std::clamp(stamp - *before, nanoseconds(0), LongestGap);
  told_ += gap;
  ++gaps_;
  // Stamps that stand from the beginning on tell no pace. Later on, frames of one stamp came
  // together.
  return told_ == nanoseconds(0) ? platform::SampleTime : gap;
}

nanoseconds FilePace::GapAtSeam(nanoseconds stamp) {
  const nanoseconds mean = gaps_ == 0 ? nanoseconds(0) : told_ / gaps_;
  *this = {};
  last_ = stamp;
  return std::max(mean, platform::SampleTime);
}

}  // namespace adapters
