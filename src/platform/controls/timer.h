#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/clock.h"
#include "platform/controls/property.h"

namespace platform {

class TimerQueue;

/// A form's timer: while `Enabled` it raises `Elapsed` each `Interval` milliseconds.
///
/// Writing `Interval` starts the count anew; writing `Enabled` True to a running timer does not. An
/// interval of 0 never elapses. A timer does not fire again while its own event is being handled,
/// so that a dialog opened by the event is not opened a second time on top of itself.
class Timer {
 public:
  Property<std::int32_t> Interval;
  Property<bool> Enabled;
  Event<> Elapsed;

  explicit Timer(TimerQueue& queue);
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer();

 private:
  friend class TimerQueue;
  void StartCount();

  TimerQueue& queue_;
  std::optional<std::chrono::nanoseconds> due_;
  bool handling_ = false;
};

/// Knows when which timer is due. The platform sleeps until `NextDue` and then calls `FireDue`.
class TimerQueue {
 public:
  explicit TimerQueue(const Clock& clock) : clock_(clock) {}

  /// The time that the timers go by: that of the clock without what was held.
  std::chrono::nanoseconds Now() const;
  std::optional<std::chrono::nanoseconds> NextDue() const;
  /// Raises the events of the timers that are due now, the earliest first, each once at most.
  void FireDue();
  /// Lets all timers stand still until the release: none is due, and each goes on counting where it
  /// stood. Holds nest.
  void Hold();
  void Release();
  /// Called whenever `NextDue` may have changed.
  std::function<void()> Rescheduled;

 private:
  friend class Timer;
  void Add(Timer& timer);
  void Remove(Timer& timer);
  void Announce() const;
  Timer* EarliestDue(std::chrono::nanoseconds now) const;

  const Clock& clock_;
  std::vector<Timer*> timers_;
  int holds_ = 0;
  std::chrono::nanoseconds heldSince_{0};
  /// How long the timers stood still in all holds that are over.
  std::chrono::nanoseconds held_{0};
};

}  // namespace platform
