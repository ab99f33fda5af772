#include "recorder/session/file_division.h"

namespace subroutines {

namespace {

/// Of two streams that come, the first has a ring between two of the second.
constexpr int FirstIsAway = 2;

}  // namespace

void FileDivision::Begin() {
  due_ = time_.Now() + span_;
  ofSecond_ = 0;
}

bool FileDivision::EndsBehind(std::size_t stream, bool full) {
  if (span_ == std::chrono::nanoseconds(0)) return false;
  if (full) return true;
  if (time_.Now() < due_) return false;
  return stream == 0 || ++ofSecond_ >= FirstIsAway;
}

void FileDivision::GoOn() {
  ofSecond_ = 0;
  const std::chrono::nanoseconds now = time_.Now();
  // A file that was full counts anew; the others keep to the pace of the first, without drifting
  // by the part of a ring.
  if (due_ > now) due_ = now;
  while (due_ <= now) due_ += span_;
}

}  // namespace subroutines
