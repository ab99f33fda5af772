#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "platform/clock.h"
#include "platform/controls/timer.h"
#include "platform/loop/holdable.h"

namespace platform {

/// Knows when which timer is due. The platform sleeps until `NextDue` and then calls `FireDue`.
class TimerQueue : public TimerCount, public Holdable {
 public:
  explicit TimerQueue(const Clock& clock) : clock_(clock) {}

  /// The time that the timers go by: that of the clock without what was held.
  std::chrono::nanoseconds Now() const override;
  /// What the computer's clocks show, whatever was held.
  const platform::Clock& UsedClock() const { return clock_; }
  std::optional<std::chrono::nanoseconds> NextDue() const;
  /// Raises the events of the timers that are due now, the earliest first, each once at most.
  void FireDue();
  /// Lets all timers stand still until the release: none is due, and each goes on counting where it
  /// stood.
  void Hold() override;
  void Release() override;
  /// Called whenever `NextDue` may have changed.
  std::function<void()> Rescheduled;

  void Add(Timer& timer) override;
  void Remove(Timer& timer) override;
  void Reschedule() override;

 private:
  Timer* EarliestDue(std::chrono::nanoseconds now) const;

  const Clock& clock_;
  std::vector<Timer*> timers_;
  int holds_ = 0;
  std::chrono::nanoseconds heldSince_{0};
  /// How long the timers stood still in all holds that are over.
  std::chrono::nanoseconds held_{0};
};

}  // namespace platform
