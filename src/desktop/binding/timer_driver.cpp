#include "desktop/binding/timer_driver.h"

#include <algorithm>
#include <chrono>

namespace desktop {

using std::chrono::milliseconds;

TimerDriver::TimerDriver(platform::TimerQueue& timers, const platform::Clock& clock, Guard& guard)
    : timers_(timers), clock_(clock), guard_(guard) {
  alarm_.setSingleShot(true);
  alarm_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&alarm_, &QTimer::timeout, &alarm_, [this] { Fire(); });
  timers_.Rescheduled = [this] { Program(); };
  Program();
}

TimerDriver::~TimerDriver() {
  timers_.Rescheduled = nullptr;
}

void TimerDriver::Program() {
  const auto due = timers_.NextDue();
  if (!due) {
    alarm_.stop();
    return;
  }
  // Rounded up: a wake-up before the time would find nothing due.
  alarm_.start(std::max(std::chrono::ceil<milliseconds>(*due - clock_.Now()), milliseconds(0)));
}

void TimerDriver::Fire() {
  if (guard_.Closed()) return;
  // Armed again before the events run: an event that pumps or opens a dialog must not keep the
  // other timers waiting.
  alarm_.start(milliseconds(0));
  guard_([this] { timers_.FireDue(); });
}

}  // namespace desktop
