#pragma once

#include <chrono>
#include <cstddef>

#include "platform/controls/timer.h"

namespace subroutines {

/// When a recording goes on in new files, where they are to hold a span of time each. It goes by
/// the first stream, whose counter gives the numbers of several files, and by the second one alone
/// where the first does not come.
class FileDivision {
 public:
  explicit FileDivision(const platform::TimerCount& time) : time_(time) {}

  /// From the next recording on each file holds so long; 0 for one file.
  void Every(std::chrono::nanoseconds span) { span_ = span; }
  /// A recording begins.
  void Begin();
  /// A ring of a stream was written. True where its files end behind it: their time is over, or
  /// there is no room for another ring in one.
  bool EndsBehind(std::size_t stream, bool full);
  /// They have ended, and others begin.
  void GoOn();

 private:
  const platform::TimerCount& time_;
  std::chrono::nanoseconds span_{0};
  std::chrono::nanoseconds due_{0};
  /// Rings of the second stream since the time was over.
  int ofSecond_ = 0;
};

}  // namespace subroutines
