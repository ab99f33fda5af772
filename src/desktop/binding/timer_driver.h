#pragma once

#include <QTimer>

#include "desktop/binding/guard.h"
#include "platform/clock.h"
#include "platform/controls/timer.h"

namespace desktop {

/// Wakes the program when the next of its timers is due.
class TimerDriver {
 public:
  TimerDriver(platform::TimerQueue& timers, const platform::Clock& clock, Guard& guard);
  TimerDriver(const TimerDriver&) = delete;
  TimerDriver& operator=(const TimerDriver&) = delete;
  ~TimerDriver();

 private:
  void Program();
  void Fire();

  platform::TimerQueue& timers_;
  const platform::Clock& clock_;
  Guard& guard_;
  QTimer alarm_;
};

}  // namespace desktop
