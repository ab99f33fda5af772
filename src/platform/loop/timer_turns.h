#pragma once

#include "platform/clock.h"
#include "platform/loop/alarm.h"
#include "platform/loop/guard.h"
#include "platform/loop/timer_queue.h"

namespace platform {

/// Wakes the program when the next of its timers is due.
class TimerTurns {
 public:
  TimerTurns(TimerQueue& timers, const Clock& clock, Guard& guard, Alarm& alarm);
  TimerTurns(const TimerTurns&) = delete;
  TimerTurns& operator=(const TimerTurns&) = delete;
  ~TimerTurns();

 private:
  void SetAlarm();
  void Turn();

  TimerQueue& timers_;
  const Clock& clock_;
  Guard& guard_;
  Alarm& alarm_;
};

}  // namespace platform
