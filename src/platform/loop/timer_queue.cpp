#include "platform/loop/timer_queue.h"

namespace platform {

using std::chrono::nanoseconds;

nanoseconds TimerQueue::Now() const {
  return (holds_ > 0 ? heldSince_ : clock_.Now()) - held_;
}

void TimerQueue::Hold() {
  if (holds_++ > 0) return;
  heldSince_ = clock_.Now();
  Reschedule();
}

void TimerQueue::Release() {
  if (--holds_ > 0) return;
  held_ += clock_.Now() - heldSince_;
  Reschedule();
}

std::optional<nanoseconds> TimerQueue::NextDue() const {
  if (holds_ > 0) return std::nullopt;
  std::optional<nanoseconds> next;
  for (const Timer* timer : timers_) {
    const std::optional<nanoseconds> due = timer->Due();
    if (due && (!next || *due < *next)) next = due;
  }
  if (next) *next += held_;
  return next;
}

Timer* TimerQueue::EarliestDue(nanoseconds now) const {
  Timer* earliest = nullptr;
  for (Timer* timer : timers_) {
    const std::optional<nanoseconds> due = timer->Due();
    if (!due || *due > now) continue;
    if (earliest == nullptr || *due < *earliest->Due()) earliest = timer;
  }
  return earliest;
}

void TimerQueue::FireDue() {
  if (holds_ > 0) return;
  const nanoseconds now = Now();
  // A timer that fires is due again after `now`, so this loop ends even where handlers take long.
  while (Timer* timer = EarliestDue(now)) timer->Fire(now);
  Reschedule();
}

void TimerQueue::Add(Timer& timer) {
  timers_.push_back(&timer);
}

void TimerQueue::Remove(Timer& timer) {
  std::erase(timers_, &timer);
}

void TimerQueue::Reschedule() {
  if (Rescheduled) Rescheduled();
}

}  // namespace platform
