#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "platform/clock.h"

namespace console {

/// Cuts what comes into seconds by the times of arrival, and by the clock where nothing comes. A
/// clock that is set makes one second longer or shorter, and neither a flood of seconds nor a hole.
class Seconds {
 public:
  using Time = std::chrono::microseconds;

  /// `over` is called at the end of each second with the moment at which it ended.
  Seconds(const platform::Clock& clock, std::function<void(Time)> over);

  /// A frame comes; the second that is over ends in front of it.
  void Frame(Time arrived) {
    if (!end_) {
      Begin(arrived);
    } else if (arrived >= *end_) {
      EndUpTo(arrived);
    }
  }
  /// The computer's clock was set by so much since the last frame.
  void SetClock(Time step) {
    if (end_) *end_ += step;
  }
  /// No frame may have come for a while; `now` is the present of what is listened to.
  void Rest(Time now);

 private:
  /// Frames are handed over so late at most.
  static constexpr std::chrono::milliseconds Grace{300};
  /// A longer hole is that of a clock that was set, or of a file that was written in two goes.
  static constexpr Time LongestHole{60'000'000};
  static constexpr Time Length{1'000'000};

  void Begin(Time at);
  void EndUpTo(Time arrived);

  const platform::Clock& clock_;
  std::function<void(Time)> over_;
  /// When the present one ends, by the times of arrival.
  std::optional<Time> end_;
  /// When it began, by the clock that cannot be set.
  std::chrono::nanoseconds began_{0};
};

}  // namespace console
