#include "platform/loop/timer_turns.h"

#include <algorithm>
#include <chrono>

namespace platform {

using std::chrono::milliseconds;

TimerTurns::TimerTurns(TimerQueue& timers, const Clock& clock, Guard& guard, Alarm& alarm)
    : timers_(timers), clock_(clock), guard_(guard), alarm_(alarm) {
  alarm_.Rings = [this] { Turn(); };
  timers_.Rescheduled = [this] { SetAlarm(); };
  SetAlarm();
}

TimerTurns::~TimerTurns() {
  timers_.Rescheduled = nullptr;
  alarm_.Rings = nullptr;
}

void TimerTurns::SetAlarm() {
  const auto due = timers_.NextDue();
  if (!due) {
    alarm_.Stop();
    return;
  }
  // Rounded up: a wake-up before the time would find nothing due.
  alarm_.Set(std::max(std::chrono::ceil<milliseconds>(*due - clock_.Now()), milliseconds(0)));
}

void TimerTurns::Turn() {
  if (guard_.Closed()) return;
  // Set again before the events run: an event that pumps or opens a dialog must not keep the other
  // timers waiting.
  alarm_.Set(milliseconds(0));
  guard_([this] { timers_.FireDue(); });
}

}  // namespace platform
