#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "platform/controls/property.h"

namespace platform {

class Timer;

/// Who counts for the timers of the forms.
class TimerCount {
 public:
  /// The time that the timers go by.
  virtual std::chrono::nanoseconds Now() const = 0;
  virtual void Add(Timer& timer) = 0;
  virtual void Remove(Timer& timer) = 0;
  /// Another timer may be due next.
  virtual void Reschedule() = 0;

 protected:
  ~TimerCount() = default;
};

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

  explicit Timer(TimerCount& count);
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer();

  /// When it fires next; nothing while it rests or its event is being handled.
  std::optional<std::chrono::nanoseconds> Due() const;
  /// Raises the event of a timer that is due at `now`.
  void Fire(std::chrono::nanoseconds now);

 private:
  void StartCount();

  TimerCount& count_;
  std::optional<std::chrono::nanoseconds> due_;
  bool handling_ = false;
};

}  // namespace platform
